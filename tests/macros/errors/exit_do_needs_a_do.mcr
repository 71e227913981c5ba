While True
Exit Do
Wend
' error: 2: Error: Do loop not found: 
