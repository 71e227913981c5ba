Sub Pick(v)
Select Case v
Case 1
Console.WriteLine v, " one"
Case 2, 3, "x"
Console.WriteLine v, " list"
Case "X"
Console.WriteLine v, " capital"
Case 2.5
Console.WriteLine v, " fraction"
Case 3
Console.WriteLine v, " never"
Case Else
Console.WriteLine v, " else"
End Select
End Sub
Pick 1
Pick 3
Pick "x"
Pick "X"
Pick 2.5
Pick 9
Pick "2"
Pick 1.0
Function Tell(v)
Console.Write v, " "
Tell = v
End Function
Select Case Tell(2)
Case Tell(1)
Console.WriteLine "first"
Case Tell(2), Tell(3)
Console.WriteLine "second"
Case Tell(4)
Console.WriteLine "third"
End Select
Dim t
t = 15
Select Case True
Case t < 10
Console.WriteLine "small"
Case t < 20
Console.WriteLine "medium"
t = 5
End Select
Select Case t
Case 1
Console.WriteLine "never"
End Select
Select Case t
Case Else
Console.WriteLine "only else"
End Select
' > 1 one
' > 3 list
' > x list
' > X capital
' > 2.5 fraction
' > 9 else
' > 2 list
' > 1 one
' > 2 1 2 3 second
' > medium
' > only else
