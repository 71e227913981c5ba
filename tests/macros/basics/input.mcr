' Input comes line by line and ends with Null.
first = Console.ReadLine()
second = Console.ReadLine()
third = Console.ReadLine()
Console.WriteLine first, "|", second, "|", TypeName(third)
' < one
' <   two
' > one|  two|Null
