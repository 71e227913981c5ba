Dim x
Do : Loop
' error: 2: Loop without end
