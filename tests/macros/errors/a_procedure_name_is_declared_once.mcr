Sub s
End Sub
Function S(a)
End Function
' error: 3: Error: Identifier is already in use: 
