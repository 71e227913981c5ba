Dim x, common
x = "module"
common = "seen"
Sub Hide
Dim x
Console.WriteLine "[", x, "]"
x = "local"
Console.WriteLine x, " ", common
common = "changed"
End Sub
Sub Count
loose = loose + 1
Console.WriteLine "loose ", loose
End Sub
Sub HideHelper
Dim Helper
Helper = 5
Console.WriteLine Helper
End Sub
Sub Helper
Console.WriteLine "helper"
End Sub
Sub Parameter(x)
x = "parameter"
End Sub
Sub Arrays
Dim a(1)
Console.WriteLine "[", a(0), "]"
a(0) = "left over"
End Sub
Hide
Hide
Console.WriteLine x, " ", common
Count
Count
Console.WriteLine TypeName(loose)
HideHelper
Helper
Parameter "given"
Console.WriteLine x
Arrays
Arrays
' > []
' > local seen
' > []
' > local changed
' > module changed
' > loose 1
' > loose 1
' > Empty
' > 5
' > helper
' > module
' > []
' > []
