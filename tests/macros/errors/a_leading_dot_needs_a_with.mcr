Sub Outside
.WriteLine "never"
End Sub
With Console
.WriteLine "inside"
Outside
End With
' > inside
' error: 2: Error: Unknown error: 
