For i = 1 To 2
Exit For
Next
Exit For
' error: 4: Error: For loop not found: 
