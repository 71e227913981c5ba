With Console
For i = 1 To 2
End With
' error: 3: Error: FOR statement without NEXT: 
