Dim d()
Sub Drop(e)
Erase d
e = 5
Console.WriteLine e, " ", TypeName(d)
End Sub
ReDim d(1)
d(1) = "old"
Drop d(1)
Console.WriteLine TypeName(d)
' > 5 Empty
' > Empty
