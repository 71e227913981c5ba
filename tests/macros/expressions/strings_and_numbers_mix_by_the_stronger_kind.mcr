Console.WriteLine "1" + "2", " ", "1" + 2, " ", 2 + "1", " ", "abc" + 2, " ", "12abc" + 1
Console.WriteLine "2.5" + 1, " ", "2.5" + 1.0, " ", "3" * 2, " ", "10" - 1, " ", "7" / 2
Console.WriteLine TypeName("1" + "2"), " ", TypeName("1" + 2), " ", TypeName("1" + 2.0), " ", TypeName(1 & 2)
Console.WriteLine 1 & 2, " ", "a" & 1.5 & True, " ", 1 + 1 & "x"
Console.WriteLine 5 = "5", " ", 0 = "abc", " ", 5.5 = "5.5", " ", "5.9" = 5, " ", "5.9" = 5.0
Console.WriteLine "10" < "9", " ", "10" < 9, " ", "B" < "a", " ", "a" = "A", " ", "ab" > "a"
Console.WriteLine True = "1", " ", True <> "1", " ", True = 5, " ", False = 0, " ", False = "0"
Console.WriteLine 1 = 1.0, " ", 0.1 + 0.2 = 0.3, " ", 2 < 2.5, " ", "b" >= "b"
' > 12 3 3 2 13
' > 3 3.5 6 9 3.5
' > String Integer Double String
' > 12 a1.5True 2x
' > True True True True False
' > True False True False True
' > False True True True False
' > True False True True
