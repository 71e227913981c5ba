Sub s
Do
x = 1
End Sub
' error: 4: Syntax error: 
