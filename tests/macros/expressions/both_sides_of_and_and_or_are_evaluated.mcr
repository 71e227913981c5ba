Function Say(text, answer)
Console.Write text, " "
Say = answer
End Function
Console.WriteLine Say("a", False) And Say("b", True)
Console.WriteLine Say("c", True) Or Say("d", False)
Console.WriteLine Say("e", False) Imp Say("f", True)
If Say("g", True) Or Say("h", True) Then Console.WriteLine "done"
Console.WriteLine Say("1", 1) + Say("2", 2) * Say("3", 3)
' > a b False
' > c d True
' > e f -1
' > g h done
' > 1 2 3 7
