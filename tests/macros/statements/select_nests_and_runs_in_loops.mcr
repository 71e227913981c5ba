Dim i, j, s
For i = 1 To 3 Step 1
Select Case i
Case 1, 3
For j = 1 To 2 Step 1
Select Case j
Case i
s = s & "same "
Case Else
s = s & i & "-" & j & " "
End Select
Next
Case Else
s = s & "skip "
End Select
Next
Console.WriteLine s, i, " ", j
' > same 1-2 skip 3-1 3-2 4 3
