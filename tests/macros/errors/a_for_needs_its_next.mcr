Console.WriteLine "never"
Dim i
For i = 1 To 3
Console.WriteLine i
' error: 3: Error: FOR statement without NEXT: 
