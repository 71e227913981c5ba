For i = 1 To 2
Next i
For i = 1 To 2
Next I
' error: 4: Error: Next's var doesn't match For's var: 
