' Each line would print something else if two neighbouring levels changed places.
Console.WriteLine "times over plus ", 2 + 3 * 4, " ", 2 * 3 + 4
Console.WriteLine "power over times ", 2 * 3 ^ 2, " ", 3 ^ 2 * 2
Console.WriteLine "minus over power ", -2 ^ 2, " ", 2 ^ -1
Console.WriteLine "times over backslash ", 20 \ 2 * 5, " ", 2 * 7 \ 4
Console.WriteLine "slash over backslash ", 20 \ 10 / 5
Console.WriteLine "backslash over mod ", 10 Mod 7 \ 2, " ", 9 \ 2 Mod 3
Console.WriteLine "mod over plus ", 8 + 7 Mod 3, " ", 8 - 7 Mod 4, " ", 7 Mod 4 * 2
Console.WriteLine "plus over join ", "a" & 1 + 2, " ", 1 + 2 & 3 + 4
Console.WriteLine "join over compare ", 1 & 2 = 12, " ", 12 = 1 & 2
Console.WriteLine "compare over not ", Not 1 = 2, " ", Not 1 = 1
Console.WriteLine "not over and ", Not True And False
Console.WriteLine "and over or ", True Or False And False, " ", 1 Or 2 And 4
Console.WriteLine "or over xor ", 5 Xor 1 Or 4
Console.WriteLine "xor over eqv ", 1 Eqv 1 Xor 1
Console.WriteLine "eqv over imp ", 0 Imp 0 Eqv 1
Console.WriteLine "parentheses ", (2 + 3) * 4, " ", -(2 ^ 2), " ", 2 ^ (3 ^ 2), " ", ((((7))))
' > times over plus 14 10
' > power over times 18 18
' > minus over power 4 0.5
' > times over backslash 2 3
' > slash over backslash 10
' > backslash over mod 1 1
' > mod over plus 9 5 7
' > plus over join a3 37
' > join over compare True True
' > compare over not True False
' > not over and False
' > and over or True 1
' > or over xor 0
' > xor over eqv False
' > eqv over imp -1
' > parentheses 20 -4 512 7
