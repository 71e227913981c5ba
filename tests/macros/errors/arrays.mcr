Dim a(3), b(3)
a(1) = 1
a = b
' error: 3: Error: Can not assign to an array: 

Dim a(3 To 3)
Dim b(3 To 2)
' error: 2: Error: Array's lower bound is greater than the upper one: 

Dim n
n = -1
ReDim a(n)
' error: 3: Error: Array's lower bound is greater than the upper one: 

Dim small(4000, 100)
small(4000, 100) = "ok"
Console.WriteLine small(4000, 100)
Dim huge(20000, 20000)
' > ok
' error: 4: Error: Unknown error: out of memory

Dim a(2)
If a Then
Console.WriteLine "never"
End If
' error: 2: Error: Invalid type: 

Sub Fill(a())
a(0) = 1
End Sub
Dim x(1), y
Fill x
Console.WriteLine x(0)
Fill y
' > 1
' error: 7: Error: Unknown error: 

Sub Show
Console.WriteLine a(0)
End Sub
Show
Dim a(2)
' error: 2: Object doesn't support this property or method: 'a'

Dim a(2, 2)
a(1, 1) = 1
Console.WriteLine a(1, 1)
a(1) = 1
' > 1
' error: 4: Error: Incorrect array dimensions number: 

Dim a(2), i
For i = 0 To 3
a(i) = i
Console.WriteLine i
Next
' > 0
' > 1
' > 2
' error: 3: Error: Array index is out of range: 

Dim box(0), a, i
a = "core"
For i = 1 To 900
box(0) = a : a = box
Next
Console.WriteLine "900"
For i = 901 To 1200
box(0) = a : a = box
Next
Console.WriteLine "never"
' > 900
' error: 8: Error: Illegal nesting: 

Dim a(1), n
Erase a
n = 5
Erase n
' error: 4: Error: Unknown array: 

Dim a(), b(3)
ReDim a(5)
ReDim b(5)
' error: 3: Error: Not a dynamic array: 
