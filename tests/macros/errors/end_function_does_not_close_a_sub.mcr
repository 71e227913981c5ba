Sub s
End Function
' error: 2: Error: Not in sub: 
