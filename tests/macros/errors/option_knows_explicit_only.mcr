Option Compare
' error: 1: Syntax error: 
