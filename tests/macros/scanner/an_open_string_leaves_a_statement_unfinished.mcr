Console.WriteLine "never"
x = "abc
x = 1
' error: 2: Syntax error: 
