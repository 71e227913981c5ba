' An operand is read when its operator runs, an index when the call or the element is reached.
Function bump(a)
    a = a + 1
    bump = a
End Function
Function shift(i)
    i = i + 1
    shift = 100
End Function
Dim list(5), grid(2, 2), deep
For n = 0 To 5 : list(n) = n * 10 : Next
i = 1
Console.WriteLine list(i) + bump(list(i)), " ", list(i)
Console.WriteLine list(i) + shift(i), " ", i
Console.WriteLine bump(list(i)) - list(i), " ", list(shift(i) - 98), " ", i
list(i) = list(i) + shift(i)
Console.WriteLine list(3), " ", list(4), " ", i
list(i - 1) = list(list(1) - 9)
Console.WriteLine list(3)
list(2) = list(2) : Console.WriteLine list(2)
list(0) = "text" : list(1) = list(0) & "s" : list(0) = 1.5 : Console.WriteLine list(0), list(1)
grid(1, 2) = grid(2, 1) : Console.WriteLine TypeName(grid(1, 2)), TypeName(-grid(0, 0)), grid(1, 1) = Empty
x = list(2 + 0.5) : Console.WriteLine x
' A copy by value and its source stay apart, whoever writes first.
Sub writesItself(ByVal a, which)
    a(1) = "mine"
    list(1) = "theirs"
    which = "element"
    Console.Write a(1), " ", a(2), " "
End Sub
Sub writesSource(ByVal a)
    list(1) = "source"
    bump list(4)
    Console.Write a(1), " ", a(4), " "
    a(2) = "copy"
End Sub
list(1) = 1 : list(2) = 2 : list(4) = 4
writesItself list, list(2) : Console.WriteLine list(1), " ", list(2)
writesSource list : Console.WriteLine list(1), " ", list(2), " ", list(4)
Sub nestedCopy(ByVal a)
    a(0)(1) = "inner copy"
    list(0)(2) = "inner source"
    Console.Write a(0)(1), " ", a(0)(2), " "
End Sub
list(0) = grid : list(0) = list
nestedCopy list : Console.WriteLine list(0)(1), " ", list(0)(2)
' Names that change their meaning while the same line runs again.
For turn = 1 To 2
    If turn = 2 Then late = "variable"
    Console.Write "late ", late, " "
Next
Console.WriteLine
Sub own
    Dim bump
    bump = 5
    Console.Write bump, " "
End Sub
own
value = 1
Console.WriteLine bump(value)
Function count(n)
    Dim total
    total = n
    If n > 0 Then total = total + count(n - 1)
    count = total
End Function
Console.WriteLine count(3), count(0)
' The same expression over different kinds of values.
ReDim any(2)
any(0) = 7 : any(1) = "7" : any(2) = True
For k = 0 To 2 : Console.Write any(k) + 1, " ", any(k) & "!", " ", Not any(k), " " : Next
Console.WriteLine
Sub tell(a)
    Console.Write TypeName(a), " "
    If TypeName(a) = "Array" Then Console.Write a(0) + 1, " "
End Sub
tell any : tell any(1) : tell 5
Console.WriteLine
' > 22 11
' > 111 2
' > 0 21 3
' > 130 40 4
' > 21
' > 21
' > 1.5texts
' > EmptyIntegerFalse
' > 21
' > mine 2 theirs element
' > theirs 4 source element 5
' > inner copy element source inner source
' > late  late variable 
' > 5 2
' > 60
' > 8 7! False 8 7! False 0 True! False 
' > Array 8 String Integer 
