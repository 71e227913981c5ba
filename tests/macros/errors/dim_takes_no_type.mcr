Dim x
Dim y As Long
' error: 2: Syntax error: 
