x = 1
Goto x
' error: 2: Syntax error: 
