Set d = CreateObject("Scripting.Dictionary")
d(1) = "number"
d("1") = "text"
d(1.5) = "half"
d(Empty) = "nothing"
Console.WriteLine d(1.0), " ", d("1"), " ", d(3 / 2), " ", d(Empty), " ", d.Count
' > number text half nothing 4
d(True) = "truth"
Console.WriteLine d(-1), " ", d.Exists(0), " ", d.Exists("")
' > truth False False
big = 9007199254740993
d(big) = "exact"
Console.WriteLine d.Exists(big), " ", d.Exists(big + 1), " ", TypeName(d.Keys(0)), " ", TypeName(d.Keys(1))
' > True False Integer String

' Case matters unless the dictionary is told otherwise while it is empty.
d("Word") = 1
Console.WriteLine d.Exists("word"), " ", d.CompareMode
' > False 0
Set e = CreateObject("Scripting.Dictionary")
e.CompareMode = 1
e("Word") = 1
e("wORD") = e("word") + 1
Console.WriteLine e.Count, " ", e.Keys(0), " ", e("WORD"), " ", e.CompareMode
' > 1 Word 2 1

' Objects are keys by what they are.
d.RemoveAll
Set d(e) = e
Set other = e
Console.WriteLine d.Exists(other), " ", d.Exists(d), " ", d(other).Count, " ", d(e) Is other
' > True False 1 True
