Option Explicit
Dim x
x = 1
Console.WriteLine x
y = x
' > 1
' error: 5: Variable is undefined : 'y'
