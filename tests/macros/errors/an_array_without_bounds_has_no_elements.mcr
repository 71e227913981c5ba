Dim a()
a(0) = 1
' error: 2: Error: Incorrect array dimensions number: 
