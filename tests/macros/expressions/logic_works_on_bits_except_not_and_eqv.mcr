Console.WriteLine 12 And 10, " ", 12 Or 10, " ", 12 Xor 10, " ", 5 Imp 3
Console.WriteLine True And False, " ", True Or False, " ", True Xor True, " ", True And 6, " ", TypeName(True And 1)
Console.WriteLine True Imp True, " ", True Imp False, " ", False Imp False, " ", TypeName(True Imp True)
Console.WriteLine 1 Eqv 1, " ", 1 Eqv 2, " ", True Eqv 5, " ", "a" Eqv "a", " ", TypeName(1 Eqv 1)
Console.WriteLine Not 0, " ", Not 5, " ", Not 0.4, " ", Not 2.4, " ", Not "abc", " ", Not ""
Console.WriteLine TypeName(Not 5), " ", 1.5 And -1, " ", 1.0 Or 1
' > 8 14 6 -5
' > False True False 6 Integer
' > -1 0 -1 Integer
' > True False True True Boolean
' > True False True False False False
' > Boolean 0 1
