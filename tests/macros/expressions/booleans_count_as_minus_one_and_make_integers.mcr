Console.WriteLine True + True, " ", TypeName(True + True), " ", True * 3, " ", True - 1
Console.WriteLine True * 2.5, " ", 2.5 + True, " ", TypeName(2.5 - False), " ", 2.5 - False
Console.WriteLine True / 4, " ", 2.5 / True, " ", TypeName(True / 2)
Console.WriteLine -True, " ", TypeName(-True), " ", -False
Console.WriteLine True < 0, " ", True < 0.4, " ", False > -1
Console.WriteLine vbTrue = True, " ", TypeName(vbTrue), " ", TypeName(True)
' > -2 Integer -3 -2
' > -3 2 Integer 3
' > -0.25 -2.5 Double
' > 1 Integer 0
' > True True True
' > True Integer Boolean
