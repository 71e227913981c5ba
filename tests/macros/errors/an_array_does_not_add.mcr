Dim a(2)
Console.WriteLine "x" & a
a(0) = a + 1
' > x
' error: 3: Error: Invalid type: 
