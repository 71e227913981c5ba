Console.WriteLine 1 : x = 1 +
' error: 1: Syntax error: 