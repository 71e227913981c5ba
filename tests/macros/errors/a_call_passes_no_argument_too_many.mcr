Function None
None = "none"
End Function
Console.WriteLine None()
Console.WriteLine None(1)
' > none
' error: 5: Error: Unknown error: 
