Sub Two(a, b)
Console.WriteLine a, b
End Sub
Two 1, 2
Two 1
' > 12
' error: 5: Error: Unknown error: 
