Function f
Exit Function
Exit Sub
End Function
' error: 3: Error: Not in sub: 
