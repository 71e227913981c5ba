If Empty Then
x = Console.End + Console.Next.If(1).Sub
Console.Print 1
Console.Loop = Console.True
With Console
.Select
.Case = .Else
End With
End If
Console. WriteLine "a blank behind the dot"
Call Console.WriteLine("called")
With Console
If True Then .WriteLine "behind Then"
.WriteLine("first column")
	.WriteLine "behind a tab"
: .WriteLine "behind a colon" : .WriteLine "and again"
End With
' > a blank behind the dot
' > called
' > behind Then
' > first column
' > behind a tab
' > behind a colon
' > and again
