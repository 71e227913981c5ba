If a Then
For i = 1 To 3
End If
' error: 3: Error: End if without if: 
