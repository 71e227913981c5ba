Sub s
If a Then
End Sub
' error: 3: Syntax error: 
