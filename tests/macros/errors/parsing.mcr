Console.WriteLine "never, since nothing runs"
Dim x
x = = 1
' error: 3: Syntax error: 

Console.WriteLine "never"
Dim i
For i = 1 To 3
Console.WriteLine i
' error: 3: Error: FOR statement without NEXT: 
