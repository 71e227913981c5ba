' A text that is built piece by piece holds what its operators gave when they ran.
text = "a"
copy = text
text = text & "b" & 1 & True
Console.WriteLine text, " ", copy
text = text & text & "|" & text
Console.WriteLine text
Console.WriteLine Change("x"), " ", text
text = "old"
text = text & "-" & Change("new") & "-" & text
Console.WriteLine text
text = text & Nested(2) & "!"
Console.WriteLine text
Sub Extend(t)
    t = t & "+" & Len(t)
End Sub
Extend text
Dim list(2)
list(1) = "item"
Extend list(1)
other = list
Extend list(1)
Console.WriteLine text, " ", list(1), " ", other(1)
number = 5
number = number & 6
number = number & 7 + 1
Console.WriteLine number, " ", TypeName(number)
unset = unset & "now set"
TEXT = Text & ""
Console.WriteLine unset, " ", Text
Function Change(value)
    text = value
    Change = "changed"
End Function
Function Nested(depth)
    Nested = "<"
    If depth > 0 Then Nested = Nested & Nested(depth - 1) & ">" Else Nested = Nested & "."
End Function
Const fixed = "f"
text = text & CByte(999)
' > ab1True a
' > ab1Trueab1True|ab1True
' > changed x
' > old-changed-new
' > old-changed-new<<<.>>!
' > old-changed-new<<<.>>!+22 item+4+6 item+4
' > 568 String
' > now set old-changed-new<<<.>>!+22
' error: 40: Error: Incorrect function argument(s):
