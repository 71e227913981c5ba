Dim a(3), b(3)
a(1) = 1
a = b
' error: 3: Error: Can not assign to an array: 
