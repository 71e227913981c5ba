Function f
End Sub
' error: 2: Error: Not in function: 
