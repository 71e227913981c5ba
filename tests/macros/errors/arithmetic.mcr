Dim x
x = True ^ 2
' error: 2: Error: Invalid base: 

Dim x
x = 2 ^ "2"
' error: 2: Error: Invalid exponent: 

Console.WriteLine -2 ^ 2
Console.WriteLine -2 ^ 2.0
' > 4
' error: 2: Error: Real power of negative number: 

Dim z
z = 0
Console.WriteLine z ^ 1
Console.WriteLine z ^ -1
' > 0
' error: 4: Error: Negative power of zero: 

' An error ends the run; what was printed before it stands.
Console.WriteLine 1 / 0
zero = 0
x = 7 \ zero
Console.WriteLine "never"
' > inf
' error: 4: Error: Unknown error:

Dim x
x = Null
If x = 1 Then
Console.WriteLine "never"
End If
' error: 3: Error: Object is nothing: 

Dim i
Do
i = i + 1
Console.WriteLine i
Loop While i + Null < 3
' > 1
' error: 5: Error: Object is nothing: 
