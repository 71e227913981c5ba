Function Find(list, wanted)
Dim i
Find = -1
For i = 0 To 3 Step 1
With Console
If list(i) = wanted Then
Find = i
Exit Function
End If
.Write "not ", i, " "
End With
Next
.Write "never"
End Function
Sub Leave(n)
Do
While True
Select Case n
Case 1
Exit Sub
Case Else
n = n - 1
End Select
Wend
Loop
End Sub
Dim a(3), n
a(0) = "p"
a(1) = "q"
a(2) = "r"
With Console
.WriteLine Find(a, "r")
.WriteLine Find(a, "p"), Find(a, "q")
n = 3
Leave n
.WriteLine n
End With
' > not 0 not 1 2
' > not 0 01
' > 1
