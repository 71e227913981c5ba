Dim z
z = 0
Console.WriteLine z ^ 1
Console.WriteLine z ^ -1
' > 0
' error: 4: Error: Negative power of zero: 
