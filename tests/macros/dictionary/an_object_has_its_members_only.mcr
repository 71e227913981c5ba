Set d = CreateObject("Scripting.Dictionary")
d.Append "a"
' error: 2: Error: Member not found:
