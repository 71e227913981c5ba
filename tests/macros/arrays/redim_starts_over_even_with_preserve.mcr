Dim d(), plain
ReDim d(1)
d(0) = "old"
ReDim d(3)
Console.WriteLine "[", d(0), "]", TypeName(d(3))
d(0) = "old"
ReDim Preserve d(5)
Console.WriteLine "[", d(0), "]", TypeName(d(5))
ReDim d(1 To 2, 3), other(1)
d(1, 3) = "two dimensions"
other(1) = "second name"
Console.WriteLine d(1, 3), " ", other(1)
plain = 5
ReDim plain(1)
plain(1) = "array now"
Console.WriteLine plain(1)
plain = 6
Console.WriteLine plain
' In a procedure the statement makes a local of that name.
Sub Local
ReDim d(0)
d(0) = "local"
Console.WriteLine d(0)
End Sub
Local
Console.WriteLine d(1, 3)
' > []Empty
' > []Empty
' > two dimensions second name
' > array now
' > 6
' > local
' > two dimensions
