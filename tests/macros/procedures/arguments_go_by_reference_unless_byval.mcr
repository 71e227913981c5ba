Sub Inc(a)
a = a + 1
End Sub
Sub IncRef(ByRef a)
a = a + 1
End Sub
Sub IncVal(ByVal a)
a = a + 1
Console.WriteLine "inside ", a
End Sub
Dim x, list(3)
Const c = 7
x = 1
Inc x
IncRef x
Console.WriteLine "by reference ", x
IncVal x
Console.WriteLine "by value ", x
list(2) = 10
Inc list(2)
IncVal list(2)
Console.WriteLine "element ", list(2)
Inc c
Console.WriteLine "constant ", c
Inc 5
Inc x + 1
Console.WriteLine "expression ", x
Inc (x)
Console.WriteLine "parenthesised ", x
Inc ((x))
Call Inc(x)
Console.WriteLine "called ", x
Inc fresh
Console.WriteLine "fresh ", fresh
' > by reference 3
' > inside 4
' > by value 3
' > inside 12
' > element 11
' > constant 7
' > expression 3
' > parenthesised 4
' > called 6
' > fresh 1
