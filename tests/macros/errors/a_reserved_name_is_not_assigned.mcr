Dim x
x = Null
Null = 3
' error: 3: Illegal assignment: 'Null'
