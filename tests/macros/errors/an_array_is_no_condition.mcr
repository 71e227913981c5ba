Dim a(2)
If a Then
Console.WriteLine "never"
End If
' error: 2: Error: Invalid type: 
