x = 1
Loop
' error: 2: Syntax error: 
