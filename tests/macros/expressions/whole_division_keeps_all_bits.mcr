x = 9007199254740993
Console.WriteLine x \ 1 = x
Console.WriteLine x \ -1 = -x
Console.WriteLine 9007199254740992 \ 1 = x
' > True
' > True
' > False
