Dim a(1 To 2)
a(0.5) = "x"
Console.WriteLine a(1)
Console.WriteLine a(0.4)
' > x
' error: 4: Error: Array index is out of range: 
