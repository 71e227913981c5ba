Dim i
For i = 1 To 2
With Console
.WriteLine "once"
Exit For
End With
Next
.WriteLine "never"
' > once
' error: 8: Error: Unknown error: 
