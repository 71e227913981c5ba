Option Explicit
For i = 1 To 2
Next
' error: 2: Variable is undefined : 'i'
