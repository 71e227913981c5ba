Set dict = CreateObject("Scripting.Dictionary")
For i = 1 To 1000000
    dict(i) = i * 2
Next
sum = 0
For i = 1 To 1000000
    sum = sum + dict(i) Mod 7
Next
Console.WriteLine dict.Count, " ", sum
