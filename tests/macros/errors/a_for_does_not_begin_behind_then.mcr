If a Then For i = 1 To 3 : x = i : Next
' error: 1: Error: End if without if: 
