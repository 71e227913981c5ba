Console.WriteLine "never, since nothing runs"
Dim x
x = = 1
' error: 3: Syntax error: 
