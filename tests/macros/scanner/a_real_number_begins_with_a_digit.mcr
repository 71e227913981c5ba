x = 0.5
x = .5
' error: 2: Syntax error: 
