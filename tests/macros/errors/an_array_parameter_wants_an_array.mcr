Sub Fill(a())
a(0) = 1
End Sub
Dim x(1), y
Fill x
Console.WriteLine x(0)
Fill y
' > 1
' error: 7: Error: Unknown error: 
