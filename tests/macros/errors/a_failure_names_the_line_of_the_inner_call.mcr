Sub Outer(n)
Console.WriteLine "outer ", n

Inner n, 0
End Sub
Function Inner(a, b)
' two lines
' of comment
Inner = a \ b
End Function
Outer 5
' > outer 5
' error: 9: Error: Unknown error: 
