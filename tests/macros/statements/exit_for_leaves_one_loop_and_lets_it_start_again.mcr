Dim i, j, s, e, a(2)
For i = 1 To 3
For j = 1 To 5
If j > i Then Exit For
s = s & i & j & " "
Next
Next
Console.WriteLine "[", s, "]"
a(0) = "x"
a(1) = "y"
a(2) = "z"
s = ""
For i = 1 To 2
For Each e In a
If e = "z" Then Exit For
s = s & e
Next
s = s & "|"
Next
Console.WriteLine s, " ", e
s = ""
For i = 3 To 1 Step 0
s = s & i
If Len(s) > 2 Then Exit For
Next
Console.WriteLine "[", s, "]"
For i = 1 To 10
Select Case i
Case 4
Exit For
End Select
Next
Console.WriteLine i
' > [11 21 22 31 32 33 ]
' > xy|xy| z
' > [333]
' > 4
