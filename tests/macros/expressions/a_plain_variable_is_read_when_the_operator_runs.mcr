Function Bump(v)
v = v + 1
Bump = v
End Function
Dim x
x = 1
Console.WriteLine x + Bump(x)
x = 1
Console.WriteLine x * 1 + Bump(x)
x = 1
Console.WriteLine x, " ", Bump(x), " ", x
x = 5
x = x
Console.WriteLine x
' > 4
' > 3
' > 2 2 2
' > 5
