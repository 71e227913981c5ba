Dim depth
Function Twice(n)
Twice = n
Twice = Twice + Twice
End Function
Function Deep()
depth = depth + 1
If depth < 4 Then Call Deep
If depth < 6 Then Call Deep()
Deep = depth
End Function
Function Plain
Plain = "plain"
pLaIn = Plain & "!"
End Function
Function Nothing_set()
End Function
Function Early(n)
Early = "before"
If n > 0 Then Exit Function
Early = "after"
End Function
Console.WriteLine Twice(21)
Console.WriteLine Deep()
Console.WriteLine Plain, " ", Plain(), " ", PLAIN
Console.WriteLine TypeName(Nothing_set())
Console.WriteLine Early(1), " ", Early(0)
' > 42
' > 6
' > plain! plain! plain!
' > Empty
' > before after
