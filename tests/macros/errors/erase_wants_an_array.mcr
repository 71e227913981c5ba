Dim a(1), n
Erase a
n = 5
Erase n
' error: 4: Error: Unknown array: 
