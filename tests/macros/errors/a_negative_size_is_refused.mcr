Dim n
n = -1
ReDim a(n)
' error: 3: Error: Array's lower bound is greater than the upper one: 
