Dim z
Console.WriteLine 5 / 2
z = 5 \ 0.4
' > 2.5
' error: 3: Error: Unknown error: 
