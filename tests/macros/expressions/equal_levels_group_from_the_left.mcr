Console.WriteLine 10 - 4 - 3, " ", 10 - 4 + 3
Console.WriteLine 100 / 10 / 5, " ", 100 / 10 * 5
Console.WriteLine 2 ^ 3 ^ 2
Console.WriteLine 20 \ 6 \ 2
Console.WriteLine 17 Mod 10 Mod 4
Console.WriteLine 1 Imp 0 Imp 0
Console.WriteLine 1 = 1 = 5, " ", 3 = 2 = 0
Console.WriteLine 3 > 2 > 1, " ", 1 < 3 < 2, " ", 5 > 4 > -2
Console.WriteLine 1 <> 1 <> True, " ", 5 < = 5, " ", 5 > = 6, " ", 5 < > 6
Console.WriteLine Not Not True, " ", - - 5, " ", 3 - -2, " ", 3 --2
' > 3 9
' > 2 50
' > 64
' > 1
' > 3
' > 1
' > True True
' > False True True
' > True True False True
' > True 5 5 5
