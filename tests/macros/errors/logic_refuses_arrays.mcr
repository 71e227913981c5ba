Dim a(2)
Console.WriteLine 6 And 3
Console.WriteLine 6 And a
' > 2
' error: 3: Error: Incorrect function argument(s): 
