Console.WriteLine "a""b", " ", """", " ", """""", " ", "[" & "" & "]"
Console.WriteLine Len(""""), Len(""), Len("""a"""), Len("'"), Len("\n")
Console.WriteLine "no ' comment, no : separator, no rem word"
Console.WriteLine "a" & vbLf & "b"
' > a"b " "" []
' > 10312
' > no ' comment, no : separator, no rem word
' > a
' > b
