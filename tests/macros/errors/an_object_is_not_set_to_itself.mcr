Dim c
Set c = Console
c.WriteLine "fine"
Set Console = Console
' > fine
' error: 4: Error: Cannot set a variable to itself: 
