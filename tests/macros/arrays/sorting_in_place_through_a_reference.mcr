Sub Sort(list(), first, last)
Dim i, j, pivot, t
If first >= last Then Exit Sub
pivot = list((first + last) \ 2)
i = first
j = last
Do While i <= j
While list(i) < pivot
i = i + 1
Wend
While list(j) > pivot
j = j - 1
Wend
If i <= j Then
t = list(i)
list(i) = list(j)
list(j) = t
i = i + 1
j = j - 1
End If
Loop
Sort list, first, j
Sort list, i, last
End Sub
Dim a(30), k, bad, sum
For k = 0 To 30 Step 1
a(k) = k * 17 Mod 31
sum = sum + a(k)
Next
Sort a, 0, 30
For k = 0 To 30 Step 1
If a(k) <> k Then bad = bad + 1
Next
Console.WriteLine sum, " ", TypeName(bad), " ", a(0), " ", a(15), " ", a(30)
' > 465 Empty 0 15 30
