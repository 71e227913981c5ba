While True
For i = 1 To 3
Wend
' error: 3: Error: Loop context required: 
