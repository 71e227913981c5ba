Dim e, n
n = 5
For Each e In n
Next
' error: 3: Object expected
