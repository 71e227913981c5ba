text = ""
For i = 1 To 50000
    text = text & "word" & (i Mod 97) & " "
Next
parts = Split(text, " ")
total = 0
For i = 0 To UBound(parts)
    total = (total + Len(parts(i)) * (i Mod 13)) Mod 99991
Next
Console.WriteLine Len(text), " ", total
