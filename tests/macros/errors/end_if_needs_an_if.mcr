x = 1
End If
' error: 2: Syntax error: 
