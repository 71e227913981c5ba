Show
Show()
Call Show
Call Show()
Call Pair(1, 2)
Pair 3, 4
Answer
Call Answer
Console.WriteLine "[", TypeName(Show()), "]"
Console.WriteLine Add(Add(1, 2), Add(3, Add(4, 5)))
Console.WriteLine Add(Answer, Answer())
Call Console.WriteLine("through call ", Answer)
If True Then Show
Sub Show
Console.WriteLine "shown"
End Sub
Public Sub Pair(a, b)
Console.WriteLine a, "-", b
End Sub
Private Function Answer
Answer = 42
End Function
Public Default Function Add(a, b)
Add = a + b
End Function
' > shown
' > shown
' > shown
' > shown
' > 1-2
' > 3-4
' > shown
' > [Empty]
' > 15
' > 84
' > through call 42
' > shown
