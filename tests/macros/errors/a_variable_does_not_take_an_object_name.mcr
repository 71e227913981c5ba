Dim consoles
Dim console
' error: 2: Error: Identifier is already in use: 
