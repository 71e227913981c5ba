Dim x
x = 2 ^ "2"
' error: 2: Error: Invalid exponent: 
