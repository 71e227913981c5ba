Option Explicit
Sub Show
Console.WriteLine c
End Sub
Show
Const c = 5
' error: 3: Variable is undefined : 'c'
