Sub Show(a, b)
Dim s
s = "none"
If a Then If b Then s = "both" Else s = "first only"
Console.WriteLine a, " ", b, " ", s
End Sub
Show True, True
Show True, False
Show False, True
Show False, False
' > True True both
' > True False first only
' > False True none
' > False False none
