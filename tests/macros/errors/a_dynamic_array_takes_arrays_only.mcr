Dim a(), b(2)
a = b
Console.WriteLine TypeName(a)
a = 5
' > Array
' error: 4: Error: Can not assign to an array: 
