Const c = 1
Console.WriteLine c
C = 2
' > 1
' error: 3: Illegal assignment: 'C'
