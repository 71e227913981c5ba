' An error ends the run; what was printed before it stands.
Console.WriteLine 1 / 0
zero = 0
x = 7 \ zero
Console.WriteLine "never"
' > inf
' error: 4: Error: Unknown error:
