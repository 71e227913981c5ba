Set d = CreateObject("Scripting.Dictionary")
Dim grid(1, 2)
grid(1, 2) = "corner"
d("grid") = grid
back = d("grid")
Console.WriteLine back(1, 2), " ", UBound(back, 1), " ", UBound(back, 2)
' > corner 1 2

' Dictionaries nest; a put goes through to the inner one.
Set d("inner") = CreateObject("Scripting.Dictionary")
d("inner")("x") = 5
d("inner").Add "y", 6
With d("inner")
    .Item("z") = .Item("x") + .Item("y")
    Console.WriteLine .Count, " ", .Item("z"), " ", d("inner")("z")
End With
' > 3 11 11

' An object of the host comes back as itself.
Set d("console") = Console
d("console").WriteLine "said by the console"
Console.WriteLine d("console") Is Console
d("list") = Array(Console, 7)
list = d("list")
Console.WriteLine list(0) Is Console, " ", list(1)
' > said by the console
' > True
' > True 7

Sub fill(target, ByVal count)
    For i = 1 To count : target("k" & i) = i : Next
End Sub
fill d, 3
Console.WriteLine d("k1") + d("k2") + d("k3")
' > 6
Set nobody = CreateObject("Scripting.Nobody")
Console.WriteLine nobody Is Nothing, " ", IsEmpty(CreateObject("Scripting.Nobody"))
' > True True
