' A comment may stand first.
Option Explicit
Dim x
Sub Use
x = 1
x = x + Mistyped
End Sub
Use
' error: 6: Variable is undefined : 'Mistyped'
