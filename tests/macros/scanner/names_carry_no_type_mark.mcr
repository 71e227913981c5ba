x1 = "x"
x2$ = "x"
' error: 2: Syntax error: 
