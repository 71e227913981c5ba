x_ = 1
_x = 1
' error: 2: Syntax error: 
