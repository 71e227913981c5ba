' A tour of the language. What follows an apostrophe is a comment.

' Variables need no declaration; each takes values of any type.
answer = 42
ratio = 2.5
title = "tour"
ready = True
Console.WriteLine TypeName(answer), " ", TypeName(ratio), " ", TypeName(title), " ", TypeName(ready)

' Arithmetic: "/" divides to a real number, "\" and Mod to whole ones, "^" is a power.
Console.WriteLine 7 / 2, " ", 7 \ 2, " ", 7 Mod 2, " ", 2 ^ 10
Console.WriteLine 2 + 3 * 4, " ", (2 + 3) * 4, " ", Abs(-2.5)
Console.WriteLine 1 < 2, " ", 1 > 2

' "&" joins values as text.
greeting = "Hello, " & title & "!"
Console.WriteLine greeting, " has ", Len(greeting), " characters"
Console.WriteLine CStr(1) & CStr(2)

' Several statements can share a line.
a = 1 : b = 2 : Console.WriteLine a + b

' Decisions.
If answer > 100 Then
    size = "large"
ElseIf answer > 10 Then
    size = "medium"
Else
    size = "small"
End If
If ready Then Console.WriteLine "A ", size, " number"

For number = 1 To 5
    Select Case number
    Case 1
        Console.WriteLine "one"
    Case 2, 3
        Console.WriteLine "two or three"
    Case Else
        Console.WriteLine "many"
        Exit For
    End Select
Next

' Loops.
countdown = ""
For i = 10 To 1 Step -3
    countdown = countdown & i & " "
Next
Console.WriteLine countdown, "done"

sum = 0
n = 0
Do While sum < 20
    n = n + 1
    sum = sum + n
Loop
Console.WriteLine "1 to ", n, " makes ", sum

Do
    n = n - 1
    If n = 3 Then Exit Do
Loop Until n = 0
Console.WriteLine "stopped at ", n

While n > 0
    n = n - 1
Wend
Console.WriteLine "and at ", n

' Inside With, a leading dot stands for the object.
With Console
    .WriteLine "With saves"
    .WriteLine "words"
End With
