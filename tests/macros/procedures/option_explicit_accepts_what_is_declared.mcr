Option Explicit
Dim i, total
Const top = 3
Sub Add(n)
Dim twice
twice = n * 2
total = total + twice
End Sub
Function Last
Last = total
End Function
For i = 1 To top : Add i : Next
ReDim undeclared(3)
undeclared(3) = "made by ReDim"
Console.WriteLine Last(), " ", undeclared(3), " ", Empty, TypeName(Null)
' > 12 made by ReDim Null
