Dim x ' after a statement
' on a line of its own : x = 1
   ' indented
Rem x = 2
REM	after a tab x = 3
rem
x = 4 'directly behind ' and again
If x = 4 Then ' behind Then
Console.WriteLine "x is ", x ' : Console.WriteLine "never"
End If ' behind the end
x = 5 : rem Console.WriteLine "never"
Console.WriteLine x : ' nothing more
' > x is 4
' > 5
