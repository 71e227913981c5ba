Console.WriteLine -2 ^ 2
Console.WriteLine -2 ^ 2.0
' > 4
' error: 2: Error: Real power of negative number: 
