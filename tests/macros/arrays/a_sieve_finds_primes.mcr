Dim composite(100), i, j, count, s
For i = 2 To 100 Step 1
If Not composite(i) Then
count = count + 1
If i > 80 Then s = s & i & " "
For j = i * i To 100 Step i
composite(j) = True
Next
End If
Next
Console.WriteLine count, ": ", s & "end"
' > 25: 83 89 97 end
