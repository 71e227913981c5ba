Dim a(2, 2)
a(1, 1) = 1
Console.WriteLine a(1, 1)
a(1) = 1
' > 1
' error: 4: Error: Incorrect array dimensions number: 
