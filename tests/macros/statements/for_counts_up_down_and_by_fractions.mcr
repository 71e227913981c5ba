Sub Count(first, last, by)
Dim i, s
For i = first To last Step by : s = s & i & " " : Next
Console.WriteLine s, "then ", i
End Sub
Count 1, 3, 1
Count 3, 1, -1
Count 1, 2, 0.5
Count 10, 1, -4
Count 1, 0, 1
Count 0, 1, -1
Count 5, 5, 1
Count 1, 3, 0
Count 1, "3", 1
Count 2.5, 4, 1
' > 1 2 3 then 4
' > 3 2 1 then 0
' > 1 1.5 2 then 2.5
' > 10 6 2 then -2
' > then 1
' > then 0
' > 5 then 6
' > then 1
' > 1 2 3 then 4
' > 2.5 3.5 then 4.5
