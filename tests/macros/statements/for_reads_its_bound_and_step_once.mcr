Dim i, n, by, s, calls
Function Bound()
calls = calls + 1
Bound = 3
End Function
n = 3
by = 1
For i = 1 To n Step by
n = 10
by = 5
s = s & i
Next
Console.WriteLine s, " ", i
For i = 1 To Bound()
Next
Console.WriteLine calls
For i = 1 To 2: i = 5: Next
Console.WriteLine i
' > 123 4
' > 1
' > 6
