Dim f(1 To 2), m(1, 2), d(), v, e, n
f(1) = "a"
f(2) = "b"
Erase f
Console.WriteLine TypeName(f), " ", TypeName(f(1)), " ", TypeName(f(2))
f(2) = "again"
Console.WriteLine f(2)
For Each e In m
n = n + 1
Next
m(0, 0) = 1
m(1, 2) = 2
m(0, 1) = 3
Erase m
For Each e In m
If TypeName(e) = "Empty" Then n = n + 10
Next
Console.WriteLine n
ReDim d(3)
Erase d
Console.WriteLine TypeName(d)
v = f
Erase v
Console.WriteLine TypeName(v), " ", f(2)
' > Array Empty Empty
' > again
' > 66
' > Empty
' > Empty again
