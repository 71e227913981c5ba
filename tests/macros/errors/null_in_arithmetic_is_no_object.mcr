Dim x
x = 1
Console.WriteLine "before"
x = x + Null
Console.WriteLine "never"
' > before
' error: 4: Error: Object is nothing: 
