Console.WriteLine Len("a")
Console.WriteLine Len("a", "b")
' > 1
' error: 2: Error: Incorrect function argument(s): 
