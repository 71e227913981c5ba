x = 1
é = 2
' error: 2: Syntax error: 
