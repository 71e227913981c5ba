Dim small(4000, 100)
small(4000, 100) = "ok"
Console.WriteLine small(4000, 100)
Dim huge(20000, 20000)
' > ok
' error: 4: Error: Unknown error: out of memory
