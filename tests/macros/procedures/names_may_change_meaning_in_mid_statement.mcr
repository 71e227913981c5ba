' A script that is executed while a statement is being computed brings procedures of its own; what
' the statement has passed over by then keeps its meaning.
Function f(k)
  If k = 2 Then WScript.Execute "lib/two_procedures.mcr"
  f = 5
End Function
For k = 1 To 3
  a = 1
  Console.WriteLine "sum ", a + f(k)
Next
x = 1
x = f(2)
Console.WriteLine x
' > sum 6
' > sum 6
' > sum 6
' > 5
