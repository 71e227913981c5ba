Dim a(), b(3)
ReDim a(5)
ReDim b(5)
' error: 3: Error: Not a dynamic array: 
