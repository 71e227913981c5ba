Dim a(3), b(-2 To 1), c(5 To 5), n, i, s
n = 2
Dim d(n + 1), e(n To n * 2)
For i = 0 To 3 : a(i) = i * i : Next
For i = -2 To 1 : b(i) = i : Next
c(5) = "only"
d(3) = "last"
e(4) = "top"
Console.WriteLine a(0), a(1), a(2), a(3)
Console.WriteLine b(-2), b(-1), b(0), b(1)
Console.WriteLine c(5), d(3), e(4), TypeName(a(0)), TypeName(d(0))
' A declaration that runs again makes the array anew.
For i = 1 To 2
Dim again(1)
s = s & "[" & again(0) & "]"
again(0) = "old"
Next
Console.WriteLine s
' > 0149
' > -2-101
' > onlylasttopIntegerEmpty
' > [][]
