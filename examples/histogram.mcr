' Counts how long the words of a text are, and draws a bar for each length.

Const longest = 12 ' and what is longer
Const columns = 40 ' of the longest bar
Dim counts(12)
For i = 0 To longest
    counts(i) = 0
Next

folder = WScript.ScriptFolder
If folder = "" Then folder = "."
Open folder & "/histogram.txt" For Input As #1
words = 0
Do Until EOF(1)
    Input #1, word
    length = Min(Len(word), longest)
    counts(length) = counts(length) + 1
    If length > 0 Then words = words + 1
Loop
Close #1

most = 1
For i = 1 To longest
    most = Max(most, counts(i))
Next

Console.WriteLine words, " words"
For i = 1 To longest
    label = i
    If i = longest Then label = i & "+"
    Console.WriteLine label, vbTab, counts(i), vbTab, String(counts(i) * columns \ most, "#")
Next
