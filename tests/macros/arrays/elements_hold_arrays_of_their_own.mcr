Dim inner(1), outer(1), whole, before
inner(0) = "in"
outer(0) = inner
outer(1) = inner
outer(0)(0) = "changed"
Console.WriteLine outer(0)(0), " ", outer(1)(0), " ", inner(0)
before = outer
outer(1)(1) = 9
Console.WriteLine TypeName(before(1)(1)), " ", outer(1)(1)
whole = before
whole(0) = outer
whole(0)(1)(1) = "deep"
Console.WriteLine whole(0)(1)(1), " ", outer(1)(1), " ", TypeName(whole(0)), " ", TypeName(whole(0)(1)(0))
Dim e, s, f
For Each e In before
For Each f In e
s = s & "[" & f & "]"
Next
Next
Console.WriteLine s
' > changed in in
' > Empty 9
' > deep 9 Array String
' > [changed][][in][]
