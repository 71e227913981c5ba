Sub s
Console.WriteLine "s"
End Sub
s = 1
' error: 4: Illegal assignment: 's'
