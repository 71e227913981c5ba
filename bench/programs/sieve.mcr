Const limit = 200000
Dim composite(200000)
count = 0
total = 0
For i = 2 To limit
    If composite(i) <> 1 Then
        count = count + 1
        total = (total + i) Mod 99991
        For k = i * i To limit Step i
            composite(k) = 1
        Next
    End If
Next
Console.WriteLine count, " ", total
