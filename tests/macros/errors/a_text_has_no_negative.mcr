Dim x
x = -"5"
' error: 2: Error: Invalid type: 
