' Without a terminal a message box answers with its default button.
Console.WriteLine MsgBox("Go on?", vbYesNo), MsgBox("Go on?", vbYesNo + vbDefaultButton2, "Title")
MsgBox "done"
' > 67
