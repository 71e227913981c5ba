Do While a
Loop
Do While a
Loop While b
' error: 4: Syntax error: 
