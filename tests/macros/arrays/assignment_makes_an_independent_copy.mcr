Dim a(2), b, c, m(1, 1), n
a(0) = "a"
b = a
b(0) = "b"
c = b
c(0) = "c"
Console.WriteLine a(0), b(0), c(0)
m(1, 0) = "m"
n = m
n(1, 0) = "n"
Console.WriteLine m(1, 0), n(1, 0)
a = a
Console.WriteLine a(0)
b = 5
Console.WriteLine b, c(0)
b = a
Console.WriteLine b(0)
' A dynamic array takes another array and stays an array.
Dim d()
d = a
d(0) = "d"
Console.WriteLine d(0), a(0)
ReDim d(7)
d(7) = "seven"
Console.WriteLine d(7)
' > abc
' > mn
' > a
' > 5c
' > a
' > da
' > seven
