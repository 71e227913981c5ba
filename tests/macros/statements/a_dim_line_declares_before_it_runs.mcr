x = 5
Dim x, y
Console.WriteLine x, TypeName(y)
If False Then
Dim z
End If
z = 1
Show
Sub Show
Console.WriteLine x, z
End Sub
' > 5Empty
' > 51
