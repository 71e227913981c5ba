Dim a(2), b(2), c(3), d(1 To 3), copy
Console.WriteLine a = b, " ", a = c, " ", a = d, " ", a <> b
a(1) = 5
Console.WriteLine a = b, " ", a <> b
b(1) = "5"
Console.WriteLine a = b
copy = a
Console.WriteLine copy = a, " ", "[" & a & "]"
copy(2) = "x"
Console.WriteLine copy = a
' > True False False False
' > False True
' > True
' > True []
' > False
