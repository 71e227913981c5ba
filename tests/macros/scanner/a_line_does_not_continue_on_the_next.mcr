x = 1 + _
2
' error: 1: Syntax error: 
