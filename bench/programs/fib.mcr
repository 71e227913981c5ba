Function fib(ByVal n)
    If n < 2 Then
        fib = n
    Else
        fib = fib(n - 1) + fib(n - 2)
    End If
End Function
Console.WriteLine fib(25)
