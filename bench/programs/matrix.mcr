Const size = 59
Dim a(59, 59), b(59, 59), c(59, 59)
For i = 0 To size
    For j = 0 To size
        a(i, j) = (i + j) Mod 10
        b(i, j) = (i * j) Mod 10
    Next
Next
For i = 0 To size
    For j = 0 To size
        sum = 0
        For k = 0 To size
            sum = sum + a(i, k) * b(k, j)
        Next
        c(i, j) = sum
    Next
Next
total = 0
For i = 0 To size
    For j = 0 To size
        total = (total * 7 + c(i, j)) Mod 99991
    Next
Next
Console.WriteLine total
