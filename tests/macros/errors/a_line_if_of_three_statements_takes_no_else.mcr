If a Then b = 1 : c = 1 Else d = 1
If a Then b = 1 : c = 1 : d = 1 Else e = 1
' error: 2: Syntax error: 
