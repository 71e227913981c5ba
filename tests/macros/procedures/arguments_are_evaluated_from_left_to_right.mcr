Function F(v)
Console.Write "f", v, " "
F = v
End Function
Function G(a, b)
Console.Write "g "
G = a * 10 + b
End Function
Console.WriteLine G(F(1), F(2))
Console.WriteLine G(G(F(1), F(2)), F(3))
Dim a(3)
a(F(2)) = F(3)
Console.WriteLine a(2)
' > f1 f2 g 12
' > f1 f2 g f3 g 123
' > f2 f3 3
