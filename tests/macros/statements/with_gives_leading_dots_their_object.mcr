Dim o, i
Set o = Console
With Console
.WriteLine "a"
With o
.Write "b", 1
.WriteLine
End With
.WriteLine "c"
For i = 1 To 2 Step 1 : .WriteLine "d", i : Next
If i = 3 Then .WriteLine "e"
End With
' A dialog's block waits for the host to open the dialog: the walk passes over it.
WithDlg Unread()
.WriteLine "never"
End WithDlg
For i = 1 To 2
With o
.WriteLine "g", i
Exit For
End With
Next
With o
.WriteLine "h"
End With
' > a
' > b1
' > c
' > d1
' > d2
' > e
' > g1
' > h
