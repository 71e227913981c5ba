total = 0
start = 1
While start < 8000
    n = start
    steps = 0
    While n <> 1
        If n Mod 2 = 0 Then
            n = n \ 2
        ElseIf n Mod 3 = 0 Then
            n = n \ 3
        Else
            n = 3 * n + 1
        End If
        steps = steps + 1
    Wend
    total = (total + steps) Mod 99991
    start = start + 1
Wend
Console.WriteLine total
