Sub Show(a, b)
Console.WriteLine "never"
End Sub
Function Loud(v)
Console.WriteLine "loud ", v
Loud = 10 \ v
End Function
Show Loud(5), Loud(0)
' > loud 5
' > loud 0
' error: 6: Error: Unknown error: 
