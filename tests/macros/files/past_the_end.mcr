' There are six fields.
Open "words.txt" For Input As #1
For i = 1 To 7
    Input #1, field
    Console.WriteLine i, field
Next
' > 1north
' > 2two words
' > 3
' > 4south,west
' > 5
' > 6last
' error: 4: Error: Can not open file: words.txt
