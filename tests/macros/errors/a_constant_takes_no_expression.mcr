Const a = -1
Const b = 1 + 1
' error: 2: Syntax error: 
