Sub Use(a, b)
Console.WriteLine b
Console.WriteLine a + b
End Sub
Use , 2
' > 2
' error: 3: Error: Invalid type: 
