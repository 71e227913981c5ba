Dim n, i, s
Function More(limit)
n = n + 1
More = n < limit
End Function
Do : n = n + 1 : Loop Until n >= 3
Console.WriteLine n
Do While n < 6 : n = n + 1 : Loop
Console.WriteLine n
While n > 2 : n = n - 1 : Wend
Console.WriteLine n
For i = 1 To 3 : s = s & i : Next
Console.WriteLine s
Do : Loop While More(9)
Console.WriteLine n
While More(12) : Wend
Console.WriteLine n
Let s = "let" : Console.WriteLine s : : Console.WriteLine "after"
::
Select Case n : Case 12 : Console.WriteLine "twelve" : Case Else : Console.WriteLine "other" : End Select
' > 3
' > 6
' > 2
' > 123
' > 9
' > 12
' > let
' > after
' > twelve
