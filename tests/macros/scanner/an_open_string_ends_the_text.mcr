Console.WriteLine "first"
Console.WriteLine "second
Console.WriteLine "never"
' > first
' > 
