If a Then
Else
ElseIf b Then
End If
' error: 3: Error: Else without if: 
