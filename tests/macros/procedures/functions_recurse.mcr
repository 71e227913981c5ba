Console.WriteLine Fact(6), " ", Fib(15), " ", Ack(2, 3)
Console.WriteLine IsEven(10), " ", IsEven(7), " ", IsOdd(7)
Console.WriteLine Tree(4), " ", Again(3)
Hanoi 3, "a", "b", "c"
Console.WriteLine "."
Console.WriteLine Sum(20000)
Function Fact(n)
If n <= 1 Then
Fact = 1
Else
Fact = n * Fact(n - 1)
End If
End Function
Function Fib(n)
If n < 2 Then Fib = n Else Fib = Fib(n - 1) + Fib(n - 2)
End Function
Function Ack(m, n)
If m = 0 Then
Ack = n + 1
ElseIf n = 0 Then
Ack = Ack(m - 1, 1)
Else
Ack = Ack(m - 1, Ack(m, n - 1))
End If
End Function
Function IsEven(n)
If n = 0 Then IsEven = True Else IsEven = IsOdd(n - 1)
End Function
Function IsOdd(n)
If n = 0 Then IsOdd = False Else IsOdd = IsEven(n - 1)
End Function
' Every activation keeps its own loop.
Function Tree(n)
Dim i
Tree = 0
If n = 0 Then
Tree = 1
Else
For i = 1 To 2
Tree = Tree + Tree(n - 1)
Next
End If
End Function
Dim calls
Function Again(limit)
calls = calls + 1
If calls < limit Then Again(limit)
Again = calls
End Function
Sub Hanoi(n, source, target, spare)
If n = 0 Then Exit Sub
Hanoi n - 1, source, spare, target
Console.Write source, target, " "
Hanoi n - 1, spare, target, source
End Sub
Function Sum(n)
If n = 0 Then Sum = 0 Else Sum = n + Sum(n - 1)
End Function
' > 720 610 9
' > True False True
' > 16 3
' > ab ac bc ab ca cb ab .
' > 200010000
