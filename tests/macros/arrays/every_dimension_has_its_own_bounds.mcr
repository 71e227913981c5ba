Dim a(1, 2), cube(1 To 2, 0 To 1, -1 To 0), i, j, k, s
For i = 0 To 1
For j = 0 To 2 : a(i, j) = i * 10 + j : Next
Next
Console.WriteLine a(0, 0), " ", a(1, 0), " ", a(0, 2), " ", a(1, 2)
For k = -1 To 0
For j = 0 To 1
For i = 1 To 2
s = s & "x"
cube(i, j, k) = s
Next
Next
Next
Console.WriteLine Len(cube(1, 0, -1)), Len(cube(2, 0, -1)), Len(cube(1, 1, -1)), Len(cube(2, 1, 0))
s = ""
For Each i In cube : s = s & Len(i) : Next
Console.WriteLine s
ReDim grid(2, 1)
grid(2, 1) = "corner"
Console.WriteLine grid(2, 1), TypeName(grid(0, 0))
' > 0 10 2 12
' > 1238
' > 12345678
' > cornerEmpty
