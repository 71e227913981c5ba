For i = 1 To 2
Sub s
Exit For
End Sub
Next
' error: 3: Error: For loop not found: 
