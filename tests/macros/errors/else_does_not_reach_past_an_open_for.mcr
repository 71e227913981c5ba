If a Then
For i = 1 To 3
Else
Next
End If
' error: 3: Error: Else without if: 
