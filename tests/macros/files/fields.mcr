' Two streams on one file keep places of their own, and an end of their own.
Open "words.txt" For Input As #1
Open "words.txt" For Input As #2
Input #2, ahead, ahead
Do Until EOF(1)
    Input #1, field
    Console.Write "[", field, "]"
Loop
Console.WriteLine
Console.WriteLine ahead, " ", EOF(1), " ", EOF(2)
Close #1
Console.WriteLine EOF(1)
Print #1, "a closed stream takes anything"
' > [north][two words][][south,west][][last]
' > two words True False
' > False
