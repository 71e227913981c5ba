Dim o, p, list(1)
Set o = Console
Set list(0) = o
Set p = list(0)
p.WriteLine "through an element"
list(0).WriteLine "directly"
Set list(0) = Nothing
list(0) = 5
Console.WriteLine list(0), " ", TypeName(o)
Set p = Nothing
Console.WriteLine TypeName(p), " ", p Is Nothing
p = "text"
Console.WriteLine p
Set o = p
Console.WriteLine o Is Nothing
' > through an element
' > directly
' > 5 Macro object
' > Object True
' > text
' > True
