x = 1 & 2
x = 1&2
' error: 2: Syntax error: 
