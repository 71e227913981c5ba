Set d = CreateObject("Scripting.Dictionary")
x = d.Exists(Array(1, 2))
' error: 2: Type mismatch
