Console.WriteLine 7 \ 2, " ", -7 \ 2, " ", 7 \ -2, " ", -7 \ -2
Console.WriteLine 7.5 \ 2, " ", 2.5 \ 1, " ", -2.5 \ 1, " ", 0.4 \ 1, " ", -0.5 \ 1
Console.WriteLine 7 Mod 3, " ", -7 Mod 3, " ", 7 Mod -3, " ", -7 Mod -3
Console.WriteLine 7 Mod 2.5, " ", 5.5 Mod 2, " ", 6.4 Mod 4
Console.WriteLine "9" \ 2, " ", "7" Mod "4", " ", "9x" \ 2, " ", True \ 1
Console.WriteLine Null Mod 5
Console.WriteLine TypeName(7.5 \ 2), " ", TypeName(7 Mod 2.5), " ", TypeName(8 / 2), " ", TypeName(2 ^ 2)
Dim least
least = -9223372036854775807 - 1
Console.WriteLine least \ -1 = least, " ", least Mod -1
' > 3 -3 -3 3
' > 4 3 -3 0 -1
' > 1 -1 1 -1
' > 1 0 2
' > 4 3 4 -1
' > 0
' > Integer Integer Double Double
' > True 0
