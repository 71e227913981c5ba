x = vbCrLf
vbCrLf = 1
' error: 2: Syntax error: 
