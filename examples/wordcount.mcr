' Counts the words in all text files of a folder and of the folders in it, and prints the most
' frequent ones.

Const shown = 6

Set fso = CreateObject("Scripting.FileSystemObject")
Set words = CreateObject("Scripting.Dictionary")
words.CompareMode = 1 ' "The" is "the"
lines = 0

Sub countLine(ByVal line)
    For Each mark In Array(".", ",", ";", ":", "!", "-", """")
        line = Replace(line, mark, " ")
    Next
    For Each word In Split(line, " ")
        If word <> "" Then words(word) = words(word) + 1
    Next
End Sub

Sub countFile(file)
    Set text = file.OpenAsTextStream(1)
    Do Until text.AtEndOfStream
        countLine text.ReadLine
        lines = lines + 1
    Loop
    text.Close
End Sub

Sub countFolder(folder)
    For Each file In folder.Files
        If fso.GetExtensionName(file.Name) = "txt" Then
            Console.WriteLine "reading ", fso.GetBaseName(file.Path)
            countFile file
        End If
    Next
    For Each inner In folder.SubFolders
        countFolder inner
    Next
End Sub

' The word that was found most often; of two, the one that was met first.
Function mostFrequent
    best = ""
    For Each word In words
        If best = "" Then best = word
        If words(word) > words(best) Then best = word
    Next
    mostFrequent = best
End Function

folder = WScript.ScriptFolder
If folder = "" Then folder = "."
countFolder fso.GetFolder(fso.BuildPath(folder, "wordcount"))

total = 0
For Each count In words.Items
    total = total + count
Next
Console.WriteLine lines, " lines, ", total, " words, ", words.Count, " different ones"
For i = 1 To shown
    word = mostFrequent()
    Console.WriteLine Space(3 - Len(CStr(words(word)))), words(word), "  ", LCase(word)
    words.Remove word
Next
