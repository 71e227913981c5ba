Do
For i = 1 To 3
Loop
' error: 3: Error: Loop context required: 
