Dim box(0), a, i
a = "core"
For i = 1 To 900
box(0) = a : a = box
Next
Console.WriteLine "900"
For i = 901 To 1200
box(0) = a : a = box
Next
Console.WriteLine "never"
' > 900
' error: 8: Error: Illegal nesting: 
