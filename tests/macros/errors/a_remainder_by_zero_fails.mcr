Function Rest(a, b)
Rest = a Mod b
End Function
Console.WriteLine Rest(7, 4)
Console.WriteLine Rest(7, "none")
' > 3
' error: 2: Error: Unknown error: 
