Dim a, b
Sub s
Dim a
End Sub
Dim c, A
' error: 5: Error: Identifier is already in use: 
