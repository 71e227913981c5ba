Sub Twice
Const limit = -1, name = "n", half = 0.5, yes = True, zero = 0
Console.WriteLine limit, name, half, yes, zero
End Sub
Sub ShowLater
Console.WriteLine "[", later, "]"
End Sub
Twice
Twice
ShowLater
Public Const later = 5
Private Const other = "x"
ShowLater
Console.WriteLine other, LATER
Dim i
For i = 1 To 2
Const inLoop = 3
Console.WriteLine inLoop
Next
Const nobody = Null, thing = Nothing, blank = Empty
Console.WriteLine TypeName(nobody), " ", TypeName(thing), " ", TypeName(blank)
' > -1n0.5True0
' > -1n0.5True0
' > []
' > [5]
' > x5
' > 3
' > 3
' > Null Object Empty
