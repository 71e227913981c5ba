' Recursion: every activation has its own variables, values in the making and return value.
Function fact(n)
    If n <= 1 Then fact = 1 Else fact = n * fact(n - 1)
End Function
Function isEven(n)
    If n = 0 Then isEven = True Else isEven = isOdd(n - 1)
End Function
Function isOdd(n)
    If n = 0 Then isOdd = False Else isOdd = isEven(n - 1)
End Function
Function ackermann(m, n)
    If m = 0 Then
        ackermann = n + 1
    ElseIf n = 0 Then
        ackermann = ackermann(m - 1, 1)
    Else
        ackermann = ackermann(m - 1, ackermann(m, n - 1))
    End If
End Function
Sub hanoi(ByVal n, ByVal from, ByVal onto, ByVal over, moves)
    If n = 0 Then Exit Sub
    hanoi n - 1, from, over, onto, moves
    moves = moves + 1
    hanoi n - 1, over, onto, from, moves
End Sub
Function f(n)
    f = n + 100
    Console.Write "f", n, " "
End Function
Function g(a, b)
    Console.Write "g "
    g = a - b
End Function
Function mixed(n)
    ' The operands on the left are there again when the calls on the right are done.
    If n = 0 Then
        mixed = 1
    Else
        mixed = n * 2 + mixed(n - 1) * 3 - (n + mixed(n - 1)) * n
    End If
End Function
Function fib(n)
    If n < 2 Then
        fib = n
        Exit Function
    End If
    fib = fib(n - 1) + fib(n - 2)
End Function
Function zero
    calls = calls + 1
    zero = 9
    If calls = 1 Then zero = zero + zero()
End Function
Dim calls
Console.WriteLine fact(10), " ", isEven(10), isOdd(7), isEven(7), " ", ackermann(2, 3)
moves = 0
hanoi 6, "a", "c", "b", moves
Console.WriteLine moves
Console.WriteLine g(f(1), f(2))
Console.WriteLine f(1) + f(2) * f(3)
Console.WriteLine mixed(5), " ", fib(12)
Console.WriteLine zero(), " ", calls
Console.WriteLine later(4)
Function later(n)
    later = n * n
End Function
Function nothingYet
End Function
Console.WriteLine TypeName(nothingYet()), " ", TypeName(nothingYet)
Sub noValue
    noValue = 3
End Sub
Console.WriteLine TypeName(noValue())
' > 3628800 TrueTrueFalse 9
' > 63
' > f1 f2 g -1
' > f1 f2 f3 10607
' > -5 144
' > 18 2
' > 16
' > Empty Empty
' > Empty
