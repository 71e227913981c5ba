Console.WriteLine("a"), "b"
' error: 1: Mismatch between the argument lists
