Sub s
Console.WriteLine "a"
' The last line has no line end, so that it is the last line.
' error: 4: Syntax error: 