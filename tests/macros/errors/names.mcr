Dim Abs
Console.WriteLine "declared"
Abs = 5
' > declared
' error: 3: Illegal assignment: 'Abs'

Const c = 1
Console.WriteLine c
C = 2
' > 1
' error: 3: Illegal assignment: 'C'

Const c = 1
Set c = Console
' error: 2: Illegal assignment: 'c'

Const i = 1
For i = 1 To 3
Next
' error: 2: Illegal assignment: 'i'

Dim x
x = Null
Null = 3
' error: 3: Illegal assignment: 'Null'

Function f
f = 1
End Function
Console.WriteLine f
f = 2
' > 1
' error: 5: Illegal assignment: 'f'

Dim consoles
Dim console
' error: 2: Error: Identifier is already in use: 

Option Explicit
Sub Show
Console.WriteLine c
End Sub
Show
Const c = 5
' error: 3: Variable is undefined : 'c'

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

Option Explicit
For i = 1 To 2
Next
' error: 2: Variable is undefined : 'i'

Option Explicit
Dim x
x = 1
Console.WriteLine x
y = x
' > 1
' error: 5: Variable is undefined : 'y'

Option Explicit
foo 1
' error: 2: Variable is undefined : 'foo'

Console.WriteLine "before"
foo 1
' > before
' error: 2: Object doesn't support this property or method: 'foo'

Dim x
x = 1
Stop
' error: 3: Object doesn't support this property or method: 'Stop'
