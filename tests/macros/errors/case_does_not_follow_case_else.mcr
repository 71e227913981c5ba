Select Case 1
Case 1
Case Else
Case 2
End Select
' error: 4: Error: End if without if: 
