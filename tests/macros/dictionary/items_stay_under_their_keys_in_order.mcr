Set d = CreateObject("Scripting.Dictionary")
d.Add "pear", 3
d.Add "plum", 5
d("fig") = 1
d.Item("pear") = d.Item("pear") + 4
Console.WriteLine d.Count, " ", Join(d.Keys, ","), " ", Join(d.Items, ",")
' > 3 pear,plum,fig 7,5,1

' A removed key that comes back stands last; a renamed one keeps its place.
d.Remove "pear"
d("pear") = 8
d.Key("plum") = "prune"
Console.WriteLine Join(d.Keys, ","), " ", d("prune"), " ", d.Exists("plum"), " ", d.Exists("prune")
' > prune,fig,pear 5 False True

' Reading an unknown key makes it, with an empty item.
Console.WriteLine "[", d("melon"), "] ", d.Count, " ", IsEmpty(d("melon"))
' > [] 4 True

' Keys may come and go while they are walked: the walk keeps what it began with.
For Each key In d
    Console.Write key, " "
    d.Remove key
    d(key & "s") = 1
Next
Console.WriteLine "-> ", Join(d.Keys, " ")
' > prune fig pear melon -> prunes figs pears melons

Console.WriteLine d.Keys(1), " ", d.Items()(1), " ", UBound(d.Keys)
' > figs 1 3
d.RemoveAll
Console.WriteLine d.Count, " ", UBound(d.Keys), " ", d.Exists("figs")
For Each key In d : Console.WriteLine "never" : Next
' > 0 -1 False
