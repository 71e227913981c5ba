Const c = 1
Sub s
Const c = 2, d = 3, c = 4
End Sub
' error: 3: Error: Identifier is already in use: 
