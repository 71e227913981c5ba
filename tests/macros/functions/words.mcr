' Counts and sorts the words of a sentence with the functions of strings and lists.
sentence = "  The quick fox, the lazy dog; THE end.  "
For Each mark In Array(",", ";", ".")
    sentence = Replace(sentence, mark, "")
Next
words = Split(Trim(sentence))
Console.WriteLine UBound(words) + 1, " words, ", UBound(Filter(words, "the", True, vbTextCompare)) + 1, " articles"
For i = 0 To UBound(words)
    For j = i + 1 To UBound(words)
        If StrComp(words(j), words(i), vbTextCompare) < 0 Then
            swap = words(i)
            words(i) = words(j)
            words(j) = swap
        End If
    Next
Next
Console.WriteLine Join(words, "|")
Console.WriteLine Join(Filter(words, "the", False, 1))
line = ""
For Each word In words
    line = line & UCase(Left(word, 1)) & LCase(Mid(word, 1)) & Space(1)
Next
Console.WriteLine RTrim(line), "<"
Console.WriteLine StrReverse("stressed"), " ", InStr(sentence, "fox"), " ", InStrRev(sentence, "the")
Console.WriteLine Join(Array(), "x"), "-", UBound(Split("")), "-", UBound(Array(1, 2, 3))
Console.WriteLine Len(Chr(0) & "a" & vbNullChar), " ", Asc(Chr(200)), " ", String(3, "-=")
' > 8 words, 3 articles
' > dog|end|fox|lazy|quick|the|THE|The
' > dog end fox lazy quick
' > Dog End Fox Lazy Quick The The The<
' > desserts 13 17
' > --1-2
' > 2 -56 ---
