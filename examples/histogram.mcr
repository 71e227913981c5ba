' Counts how long the words of a text are, and draws a bar for each length.

Dim counts(12)
For i = 0 To 12
    counts(i) = 0
Next

folder = WScript.ScriptFolder
If folder = "" Then folder = "."
Open folder & "/histogram.txt" For Input As #1
words = 0
Do Until EOF(1)
    Input #1, word
    length = Len(word)
    If length > 12 Then length = 12
    counts(length) = counts(length) + 1
    If length > 0 Then words = words + 1
Loop
Close #1

most = 1
For i = 1 To 12
    If counts(i) > most Then most = counts(i)
Next

' The longest bar takes 40 columns.
Console.WriteLine words, " words"
For i = 1 To 12
    label = i
    If i = 12 Then label = i & "+"
    bar = ""
    For j = 1 To counts(i) * 40 \ most
        bar = bar & "#"
    Next
    Console.WriteLine label, vbTab, counts(i), vbTab, bar
Next
