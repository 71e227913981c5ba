Dim i
Next
' error: 2: Error: Next's var doesn't match For's var: 
