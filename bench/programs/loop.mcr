total = 0
For i = 1 To 1000000
    total = (total + i * 3 - 1) Mod 99991
Next
Console.WriteLine total
