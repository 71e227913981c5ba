Dim a(-3 To 3), i
For i = -3 To 3 Step 1
a(i) = "<" & i & ">"
Next
Console.WriteLine a(1.4), a(1.5), a(2.5), a(-0.4), a(-0.5), a(-1.5)
Console.WriteLine a("2"), a("2.9"), a("x"), a(True), a(False), a(never_set)
a(0.5) = "half"
Console.WriteLine a(0), a(1)
' > <1><2><3><0><-1><-2>
' > <2><2><0><-1><0><0>
' > <0>half
