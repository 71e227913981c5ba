Dim s
If False Then s = s & "a" : s = s & "b" : s = s & "c"
Console.WriteLine "1 ", s
s = ""
If True Then s = s & "a" : s = s & "b" : s = s & "c" : s = s & "d"
Console.WriteLine "2 ", s
s = ""
If False Then : s = s & "a" : s = s & "b"
Console.WriteLine "3 ", s
s = ""
If False Then s = s & "a" : s = s & "b" Else s = s & "c" : s = s & "d" : s = s & "e"
Console.WriteLine "4 ", s
s = ""
If True Then s = s & "a" : s = s & "b" Else s = s & "c" : s = s & "d" : s = s & "e"
Console.WriteLine "5 ", s
s = ""
If True Then s = s & "a" End If : s = s & "b"
If False Then s = s & "c" Else s = s & "d" End If
Console.WriteLine "6 ", s
' > 1 c
' > 2 abcd
' > 3 b
' > 4 cde
' > 5 ab
' > 6 abd
