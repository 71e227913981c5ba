Dim i, n
n = 1
For i = 1 To n
Console.WriteLine i
Next
For i = 1 To unset
Next
' > 1
' error: 6: Error: Unknown error: 
