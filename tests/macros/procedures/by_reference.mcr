' What a call may change: variables, elements, chains of parameters; never constants and literals.
Sub inc(a)
    a = a + 1
End Sub
Sub inc2(ByRef b)
    inc b
    inc b
End Sub
Sub inc4(inc)
    inc2 inc
    inc2 inc
End Sub
Sub keep(ByVal a)
    a = a + 1
    inc4 a
    Console.Write "inside ", a, " "
End Sub
Sub both(a, b)
    a = a * 10
    b = b + 1
End Sub
Dim arr(3), grid(2, 2)
x = 1
inc x : Console.WriteLine x
inc4 x : Console.WriteLine x
inc arr(2) : inc2 arr(2) : inc4 arr(2) : Console.WriteLine arr(2)
inc grid(1, 2) : inc2 grid(1, 2) : Console.WriteLine grid(1, 2), " ", TypeName(grid(2, 1))
inc (x) : Console.WriteLine x
inc x + 1 : inc 5 : Console.WriteLine x
Call inc(x) : inc fresh : Console.WriteLine x, " ", fresh
keep x : Console.WriteLine x
keep arr(2) : Console.WriteLine arr(2)
both x, x : Console.WriteLine x
both arr(2), arr(2) : Console.WriteLine arr(2)
Const c = 3
inc c : inc4 c : Console.WriteLine c
x = 5 : x = x : Console.WriteLine x
' The index is taken when the call is made, not when the parameter is written.
Sub move(index, value)
    index = index + 1
    value = "moved"
End Sub
i = 1
move i, arr(i)
Console.WriteLine arr(1), " ", TypeName(arr(2)), " ", i
Sub swap(a, b)
    t = a : a = b : b = t
End Sub
p = "p" : q = "q"
swap p, q : Console.WriteLine p, q
arr(0) = "zero" : arr(1) = "one"
swap arr(0), arr(1) : Console.WriteLine arr(0), arr(1)
swap arr(0), p : Console.WriteLine arr(0), p
' Null, then a number again, in all kinds of places.
n = Null : n = 1 : arr(0) = Null : arr(0) = 3
Console.WriteLine n, arr(0)
Function assigned(a)
    a = 7
    assigned = a + 1
End Function
y = 1
y = assigned(y)
Console.WriteLine y
y = 1
z = assigned(y) + y
Console.WriteLine z
Sub pass(a)
    Console.Write TypeName(a)
    Set a = Console
    Console.WriteLine " ", TypeName(a)
End Sub
Dim o
pass o
pass arr(3)
o.WriteLine "bound"
arr(3).WriteLine "bound element"
' > 2
' > 6
' > 7
' > 3 Empty
' > 7
' > 7
' > 8 1
' > inside 13 8
' > inside 12 7
' > 81
' > 71
' > 3
' > 5
' > moved Integer 2
' > qp
' > onezero
' > qone
' > 13
' > 8
' > 15
' > Empty Macro object
' > Empty Macro object
' > bound
' > bound element
