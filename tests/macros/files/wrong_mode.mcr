' Printing to a file that is open for reading.
Open "words.txt" For Input As #1
Console.WriteLine "open"
Print #2, "no such stream"
Print #1, "x"
' > open
' error: 5: Error: File is open in an incorrect mode for the operation:
