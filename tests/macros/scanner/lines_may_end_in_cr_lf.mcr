Dim x
x = 1 ' comment
If x = 1 Then
Console.WriteLine "first ", x
Else
Console.WriteLine "never"
End If
For i = 1 To 2 : x = x + i : Next
Console.WriteLine x

' The line of a failure is counted by line ends.
x = x + Null
' > first 1
' > 4
' error: 12: Error: Object is nothing: 
