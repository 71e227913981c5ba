Dim x
x = True
With x
.WriteLine "never"
End With
' error: 3: Object required: 'True'
