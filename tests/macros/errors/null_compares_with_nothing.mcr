Dim x
x = Null
If x = 1 Then
Console.WriteLine "never"
End If
' error: 3: Error: Object is nothing: 
