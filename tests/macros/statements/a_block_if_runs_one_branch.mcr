Function Grade(n)
If n >= 90 Then
Grade = "A"
ElseIf n >= 80 Then
Grade = "B"
If n > 88 Then
Grade = Grade & "+"
End If
ElseIf n >= 70 Then
Grade = "C"
Else
Grade = "F"
End If
End Function
Console.WriteLine Grade(95), " ", Grade(89), " ", Grade(80), " ", Grade(70), " ", Grade(10)
Dim seen
Function Ask(v)
seen = seen & "?"
Ask = v
End Function
If Ask(False) Then
seen = seen & "1"
ElseIf Ask(True) Then
seen = seen & "2"
ElseIf Ask(True) Then
seen = seen & "3"
End If
Console.WriteLine seen
If "2x" Then
Console.WriteLine "text with a number"
End If
If 0.4 Then
Console.WriteLine "never"
End If
If 0.5 Then
Console.WriteLine "half"
End If
If "True" Then
Console.WriteLine "never"
End If
' > A B+ B C F
' > ??2
' > text with a number
' > half
