Dim n, s
Do While n < 3
n = n + 1
Loop
Console.WriteLine "a ", n
Do Until n = 0
n = n - 1
Loop
Console.WriteLine "b ", n
Do
n = n + 1
Loop While n < 3
Console.WriteLine "c ", n
Do
n = n + 1
Loop Until n > 1
Console.WriteLine "d ", n
Do While False
n = 100
Loop
Do Until True
n = 100
Loop
While n > 10
n = 100
Wend
Console.WriteLine "e ", n
Do
n = n - 1
If n = 1 Then Exit Do
s = s & n
Loop
Console.WriteLine "f ", n, " ", s
While n < 5
n = n + 2
Wend
Console.WriteLine "g ", n
' > a 3
' > b 0
' > c 3
' > d 4
' > e 4
' > f 1 32
' > g 5
