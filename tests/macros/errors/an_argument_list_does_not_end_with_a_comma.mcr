Console.WriteLine 1, 2
Console.WriteLine 1,
' error: 2: Syntax error: 
