' The start is stored before the bound is read.
Dim i, s
i = 5
For i = 1 To i : s = s & "x" : Next
Console.WriteLine s, " ", i
' > x 2
