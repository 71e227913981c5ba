Dim x
x = True ^ 2
' error: 2: Error: Invalid base: 
