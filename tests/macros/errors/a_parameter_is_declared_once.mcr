Sub s(a, b)
End Sub
Sub t(a, b, a)
End Sub
' error: 3: Error: Identifier is already in use: 
