Console.WriteLine "never"
Console .WriteLine "x"
' error: 2: Syntax error: 
