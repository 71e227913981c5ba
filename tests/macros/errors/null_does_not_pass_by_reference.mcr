Sub Show(a)
Console.WriteLine "[", a, "]"
End Sub
Show Empty
Show Null
' > []
' error: 5: Error: Unknown error: 
