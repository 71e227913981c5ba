Sub Fill(a(), v)
Dim i
For i = 0 To 2
a(i) = v & i
Next
End Sub
Sub FillCopy(ByVal a(), v)
a(0) = v
Console.WriteLine "copy ", a(0), a(1)
End Sub
Sub Plain(a)
a(2) = "p"
End Sub
Sub Grow(a)
ReDim a(5)
a(5) = "five"
End Sub
Function Make(first)
Dim r(1)
r(0) = first
r(1) = "second"
Make = r
End Function
Dim x(2), d(), m
Fill x, "v"
Console.WriteLine x(0), x(1), x(2)
FillCopy x, "changed"
Console.WriteLine x(0)
Plain x
Console.WriteLine x(2)
Grow d
Console.WriteLine d(5)
m = Make("one")
Console.WriteLine m(0), " ", m(1), " ", TypeName(m)
Console.WriteLine Make("two")(0), " ", Make("three")(1)
m(0) = "own"
Console.WriteLine m(0), " ", Make("one")(0)
' > v0v1v2
' > copy changedv1
' > v0
' > p
' > five
' > one second Array
' > two second
' > own one
