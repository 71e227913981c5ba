Option Explicit
Sub First
Dim inner
inner = 1
Second
End Sub
Sub Second
Console.WriteLine inner
End Sub
First
' error: 8: Variable is undefined : 'inner'
