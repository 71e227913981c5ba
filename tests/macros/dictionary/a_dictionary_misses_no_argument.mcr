Set d = CreateObject("Scripting.Dictionary")
d.Add "a"
' error: 2: Error: Incorrect function argument(s):
