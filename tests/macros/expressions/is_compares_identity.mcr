Dim a, b, c, none
Set a = Console
Set b = a
Set none = Nothing
Console.WriteLine a Is b, " ", a Is Console, " ", a Is Nothing, " ", none Is Nothing, " ", Nothing Is Nothing, " ", Not a Is none
Set none = 5
Console.WriteLine none Is Nothing
c = Console
Console.WriteLine TypeName(c)
' > True True False True True True
' > True
' > Empty
