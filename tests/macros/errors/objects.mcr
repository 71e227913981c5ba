Sub Outside
.WriteLine "never"
End Sub
With Console
.WriteLine "inside"
Outside
End With
' > inside
' error: 2: Error: Unknown error: 

Dim x
x = 5
x.Name = 1
' error: 3: Object required: '[number: 5]'

Dim x
x.Go 1, 2
' error: 2: Object required: '[undefined]'

Dim e, n
n = 5
For Each e In n
Next
' error: 3: Object expected

Dim x, y
Set x = Console
Console.WriteLine x Is Console
y = 5
Console.WriteLine x Is y
' > True
' error: 5: Object required: '[number: 5]'

Dim x
Set x = Console
x.WriteLine "member"
Set x = Nothing
x.WriteLine "never"
' > member
' error: 5: Error: Object is nothing: 

Dim c
Set c = Console
c.WriteLine "fine"
Set Console = Console
' > fine
' error: 4: Error: Cannot set a variable to itself: 

Dim x
x = True
With x
.WriteLine "never"
End With
' error: 3: Object required: 'True'

Dim i
For i = 1 To 2
With Console
.WriteLine "once"
Exit For
End With
Next
.WriteLine "never"
' > once
' error: 8: Error: Unknown error: 

Dim i, n
n = 1
For i = 1 To n
Console.WriteLine i
Next
For i = 1 To unset
Next
' > 1
' error: 6: Error: Unknown error: 
