Dim a(3 To 3)
Dim b(3 To 2)
' error: 2: Error: Array's lower bound is greater than the upper one: 
