Sub Show
Console.WriteLine a(0)
End Sub
Show
Dim a(2)
' error: 2: Object doesn't support this property or method: 'a'
