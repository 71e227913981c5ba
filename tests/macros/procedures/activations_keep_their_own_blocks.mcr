Dim list(2), out
list(0) = "a"
list(1) = "b"
list(2) = "c"
' Loops, selections and With blocks of one activation stand still while another runs.
Function Walk(depth)
Dim e, n
n = 0
For Each e In list
If depth > 0 Then n = n + Walk(depth - 1)
n = n + 1
If e = "b" And depth = 0 Then
Walk = n
Exit Function
End If
Next
Walk = n
End Function
Function Choose(n)
Select Case n
Case Again(n - 1), n
Choose = Choose & "<" & n
Case Else
Choose = "else"
End Select
End Function
Function Again(n)
Again = n
If n > 0 Then out = out & Choose(n)
End Function
Function Speak(n)
With Console
If n > 0 Then .Write n, "[", Speak(n - 1), "]"
.Write n
End With
Speak = "s" & n
End Function
Function Climb(n)
Dim i
For i = n To 3 Step 1
If i = n + 1 Then Exit Function
Climb = Climb & i & Climb(i + 1)
Next
End Function
Console.WriteLine Walk(0), " ", Walk(1), " ", Walk(2)
Console.WriteLine Choose(3), " ", out
Console.WriteLine "=", Speak(2)
Console.WriteLine Climb(1)
Console.WriteLine 100 * Walk(0) + 10 * Walk(1) - Walk(Walk(0) - 1)
' > 2 9 30
' > <3 <1<2
' > 01[s0]12[s1]2=s2
' > 123
' > 281
