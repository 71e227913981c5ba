Dim a
If a Then
Console.WriteLine a
' error: 5: Syntax error: 
