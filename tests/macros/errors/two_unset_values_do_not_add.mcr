Dim x, y
Console.WriteLine x + 0
x = x + y
' > 0
' error: 3: Error: Invalid type: 
