Function f
f = 1
End Function
Console.WriteLine f
f = 2
' > 1
' error: 5: Illegal assignment: 'f'
