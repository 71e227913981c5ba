' A For variable keeps the value that ended the loop; the bound is read once and the step decides
' the direction.
limit = 3
For i = 1 To limit
    limit = 1
    Console.WriteLine "for ", i
Next
Console.WriteLine "after ", i
For i = 3 To 1
    Console.WriteLine "never"
Next
For i = 1 To 2 Step 0.5
    Console.WriteLine i
    If i = 1.5 Then Exit For
Next
n = 0
Do Until n = 2
    n = n + 1
    While n < 2
        Console.WriteLine "while ", n
        n = n + 1
    Wend
Loop
Do
    n = n - 1
Loop While n > -1
Console.WriteLine n
' > for 1
' > for 2
' > for 3
' > after 4
' > 1
' > 1.5
' > while 1
' > -1
