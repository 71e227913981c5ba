Console.WriteLine Abs()
' error: 1: Error: Incorrect function argument(s): 

Console.WriteLine Len("a")
Console.WriteLine Len("a", "b")
' > 1
' error: 2: Error: Incorrect function argument(s): 

Sub Two(a, b)
Console.WriteLine a, b
End Sub
Two 1, 2
Two 1
' > 12
' error: 5: Error: Unknown error: 

Function None
None = "none"
End Function
Console.WriteLine None()
Console.WriteLine None(1)
' > none
' error: 5: Error: Unknown error: 

Sub Show(a, b)
Console.WriteLine "never"
End Sub
Function Loud(v)
Console.WriteLine "loud ", v
Loud = 10 \ v
End Function
Show Loud(5), Loud(0)
' > loud 5
' > loud 0
' error: 6: Error: Unknown error: 

Sub Outer(n)
Console.WriteLine "outer ", n

Inner n, 0
End Sub
Function Inner(a, b)
' two lines
' of comment
Inner = a \ b
End Function
Outer 5
' > outer 5
' error: 9: Error: Unknown error: 

Sub Show(a)
Console.WriteLine "[", a, "]"
End Sub
Show Empty
Show Null
' > []
' error: 5: Error: Unknown error: 

Dim n, m
n = 5
m = n(1)
' error: 3: Object doesn't support this property or method: 'n'
