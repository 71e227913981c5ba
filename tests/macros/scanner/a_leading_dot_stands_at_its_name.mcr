With Console
.WriteLine "never"
. WriteLine "x"
End With
' error: 3: Syntax error: 
