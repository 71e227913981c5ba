Dim a(3)
Set a = Console
' error: 2: Error: Can not assign to an array: 
