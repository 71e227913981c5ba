Sub s
Exit Sub
Exit Function
End Sub
' error: 3: Error: Not in function: 
