Dim Abs
Console.WriteLine "declared"
Abs = 5
' > declared
' error: 3: Illegal assignment: 'Abs'
