Dim x, y
x = -2
y = 3
Console.WriteLine x ^ 2, " ", x ^ y, " ", -8 ^ 3, " ", 4 ^ 0.5, " ", 0 ^ 0, " ", 2 ^ -2
Console.WriteLine 0 ^ 2.0, " ", 1.5 ^ 2, " ", -1.5 ^ 2, " ", TypeName(x ^ y)
' > 4 -8 -512 2 1 0.25
' > 0 2.25 2.25 Double
