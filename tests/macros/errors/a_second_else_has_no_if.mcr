If a Then
b = 1
Else
b = 2
Else
b = 3
End If
' error: 5: Error: Else without if: 
