' Arrays and procedures: by reference, by value, in and out of functions, reshaped by the callee.
Sub setIt(a(), ByVal i, ByVal value)
    a(i) = value
End Sub
Sub setCopy(ByVal a(), ByVal i, ByVal value)
    a(i) = value
    Console.Write "copy ", a(i), " "
End Sub
Sub reshape(a)
    ReDim a(2, 1)
    a(2, 1) = "reshaped"
End Sub
Sub drop(a)
    Erase a
End Sub
Function made(n)
    Dim list(2)
    For i = 0 To 2 : list(i) = i * n : Next
    made = list
End Function
Function sum(list(), ByVal final)
    If final < 0 Then sum = 0 Else sum = list(final) + sum(list, final - 1)
End Function
Dim fixed(2), square(2, 1)
setIt fixed, 1, "one"
setCopy fixed, 1, "two"
Console.WriteLine fixed(1)
drop fixed
Console.WriteLine TypeName(fixed), TypeName(fixed(1))
square(2, 1) = "corner" : square(1, 1) = "edge" : square(0, 0) = "first"
drop square
Console.WriteLine TypeName(square(2, 1)), TypeName(square(1, 1)), TypeName(square(0, 0))

ReDim free(1)
free(0) = "kept"
other = free
reshape free
Console.WriteLine free(2, 1), " ", other(0)
drop free
Console.WriteLine TypeName(free), " ", other(0)

a = made(10)
b = a
b(1) = "changed"
Console.WriteLine a(0), " ", a(1), " ", a(2), " ", b(1), " ", sum(a, 2)
Console.WriteLine made(3)(2)

' An element that is an array, and a copy that was made before it changed.
Dim nested
nested = made(1)
nested(0) = made(2)
nested(1) = nested(0)
before = nested
nested(0)(2) = 99
Console.WriteLine nested(0)(2), " ", nested(1)(2), " ", before(0)(2), " ", sum(nested(0), 2)
setIt nested(1), 0, "inner"
Console.WriteLine nested(1)(0), " ", nested(0)(0)

' The element goes while a parameter still stands for it.
Sub lose(element)
    ReDim free(1)
    nested = 0
    element = "written to nothing"
    Console.WriteLine TypeName(nested), " ", element
End Sub
lose nested(0)
' Bounds that do not begin at 0.
Dim months(1 To 12), cube(-1 To 1, 2 To 3, 2)
setIt months, 12, "December"
cube(-1, 3, 2) = "far"
cube(1, 2, 0) = "near"
n = 0
For Each cell In cube
    n = n + 1
    If TypeName(cell) = "String" Then Console.Write n, " ", cell, " "
Next
Console.WriteLine months(12), " of ", n
Console.WriteLine fixed(0.4), " ", TypeName(fixed(-0.4)), " ", TypeName(fixed(1.5))
' > copy two one
' > ArrayEmpty
' > EmptyEmptyEmpty
' > reshaped kept
' > Empty kept
' > 0 10 20 changed 30
' > 6
' > 99 4 4 101
' > inner 0
' > Integer written to nothing
' > 3 near 16 far December of 18
' >  Empty Empty
