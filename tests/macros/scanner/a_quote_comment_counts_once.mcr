' first
x = 1 ' second

' fourth
x = Null + 1
' error: 5: Error: Object is nothing: 
