Dim a
Exit Sub
' error: 2: Error: Not in sub: 
