Dim a(2), i
For i = 0 To 3
a(i) = i
Console.WriteLine i
Next
' > 0
' > 1
' > 2
' error: 3: Error: Array index is out of range: 
