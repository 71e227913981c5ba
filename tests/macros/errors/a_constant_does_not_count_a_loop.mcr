Const i = 1
For i = 1 To 3
Next
' error: 2: Illegal assignment: 'i'
