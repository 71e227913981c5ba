Console.WriteLine "é€", Len("é")
' bytes é in a comment
' > é€2
