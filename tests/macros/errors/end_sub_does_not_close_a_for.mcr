Sub s
For i = 1 To 3
End Sub
' error: 3: Error: Function or Sub End without header declared: 
