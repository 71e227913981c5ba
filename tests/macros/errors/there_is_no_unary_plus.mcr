x = 5 + -1
x = +1
' error: 2: Syntax error: 
