x = 7
x = x @ 2
' error: 2: Syntax error: 
