x = 5 <= 6
x = 5 =< 6
' error: 2: Syntax error: 
