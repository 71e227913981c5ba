Sub Outer(a)
Middle a
a = a & "o"
End Sub
Sub Middle(b)
Inner b
b = b & "m"
End Sub
Sub Inner(c)
c = c & "i"
End Sub
Sub Fork(ByVal b)
Inner b
Console.WriteLine "copy ", b
End Sub
Sub Both(a, b)
a = 1
b = b + 1
Console.WriteLine a, b
End Sub
Sub Swap(a, b)
Dim t
t = a
a = b
b = t
End Sub
Dim x, y, list(1)
x = "x"
Outer x
Console.WriteLine x
Fork x
Console.WriteLine x
list(1) = "e"
Outer list(1)
Console.WriteLine list(1)
Both y, y
Console.WriteLine y
x = 1
list(0) = 2
Swap x, list(0)
Console.WriteLine x, list(0)
' > ximo
' > copy ximoi
' > ximo
' > eimo
' > 22
' > 2
' > 21
