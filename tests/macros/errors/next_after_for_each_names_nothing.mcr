Dim a(1), x
For Each x In a
Next
For Each x In a
Next x
' error: 5: Error: Next's var doesn't match For's var: 
