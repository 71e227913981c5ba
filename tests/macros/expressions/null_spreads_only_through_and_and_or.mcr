Console.WriteLine TypeName(Null Or False), " ", TypeName(False Or Null), " ", TypeName(Null Or Null), " ", TypeName(Null And True)
Console.WriteLine Null Or True, " ", TypeName(Null Or True), " ", Null Or 6, " ", 6 Or Null
Console.WriteLine Null And False, " ", TypeName(Null And False), " ", 0 And Null, " ", TypeName(Null And 7)
Console.WriteLine "[" & Null & "]", " ", Null & "a", " ", Null Mod 5
Dim x
x = Null
Console.WriteLine TypeName(x)
x = 1
Console.WriteLine x + 1
If Null Then Console.WriteLine "taken" Else Console.WriteLine "not taken"
' > Null Null Null Null
' > -1 Integer 6 6
' > 0 Integer 0 Null
' > [] a 0
' > Null
' > 2
' > not taken
