Dim grid(1, 2), list(-1 To 1), none(), e, f, s, i, j
For i = 0 To 1 Step 1
For j = 0 To 2 Step 1 : grid(i, j) = i & j : Next
Next
For Each e In grid : s = s & e & " " : Next
Console.WriteLine s, "last ", e
list(-1) = "a"
list(0) = "b"
list(1) = "c"
s = ""
For Each e In list
For Each f In list : s = s & e & f & " " : Next
e = "changed"
Next
Console.WriteLine s, list(-1), list(0), list(1)
For Each e In none : Console.WriteLine "never" : Next
Dim d()
ReDim d(2)
d(2) = "kept"
s = ""
For Each e In d
ReDim d(0)
s = s & "[" & e & "]"
Next
Console.WriteLine s
' > 00 10 01 11 02 12 last 12
' > aa ab ac ba bb bc ca cb cc abc
' > [][][kept]
