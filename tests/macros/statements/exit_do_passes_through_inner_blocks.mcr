Dim i, n, s
Do
n = n + 1
For i = 1 To 3
If n = 2 And i = 2 Then Exit Do
s = s & n & i & " "
Next
Loop
Console.WriteLine s, n, " ", i
' The inner loop begins afresh although it was left half way.
s = ""
n = 0
Do While n < 2
n = n + 1
i = 0
Do
i = i + 1
If i = 2 Then Exit Do
While True
s = s & n
Exit Do
Wend
Loop
s = s & "|"
Loop
Console.WriteLine s
' > 11 12 13 21 2 2
' > 1|2|
