Console.WriteLine Abs()
' error: 1: Error: Incorrect function argument(s): 
