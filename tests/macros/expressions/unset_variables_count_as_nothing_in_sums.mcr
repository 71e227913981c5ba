Dim e, f
Console.WriteLine e + 1, " ", 1 + e, " ", "[" & e & "]", " ", e + "x", " ", e * 3, " ", e - 2.5
Console.WriteLine TypeName(e), " ", TypeName(-e), " ", -e, " ", TypeName(e + "x"), " ", TypeName(never_named)
Console.WriteLine e = 0, " ", e = "", " ", e = False, " ", e < 1, " ", e = f, " ", e <> f
Console.WriteLine e = Empty, " ", Empty = Empty, " ", Not e
e = 5
e = Empty
Console.WriteLine TypeName(e), " ", e = f
If e Then Console.WriteLine "taken" Else Console.WriteLine "not taken"
' > 1 1 [] x 0 -2.5
' > Empty Integer 0 String Empty
' > True True True True True False
' > False True True
' > Empty True
' > not taken
