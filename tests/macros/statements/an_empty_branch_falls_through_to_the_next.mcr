Dim x
If True Then
' a comment is no statement
Else
Console.WriteLine "else ran"
End If
If True Then
ElseIf x = 0 Then
Console.WriteLine "second branch ran"
Else
Console.WriteLine "never"
End If
If True Then
ElseIf False Then
Console.WriteLine "never"
Else
Console.WriteLine "else ran again"
End If
If False Then
Else
End If
Select Case 1
Case 1
Case 1
Console.WriteLine "never"
Case Else
Console.WriteLine "never"
End Select
Console.WriteLine "end"
' > else ran
' > second branch ran
' > else ran again
' > end
