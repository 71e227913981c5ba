Dim x
x = "5" - 1
Console.WriteLine x
x = "5" - "1"
' > 4
' error: 4: Error: Invalid type: 
