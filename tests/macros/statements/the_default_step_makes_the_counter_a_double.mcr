Dim i, s
For i = 1 To 3 : s = s & TypeName(i) & " " : Next
Console.WriteLine s, TypeName(i), " ", i
s = ""
For i = 1 To 3 Step 1 : s = s & TypeName(i) & " " : Next i
Console.WriteLine s, TypeName(i), " ", i
For i = 1234566 To 1234567 : Console.WriteLine i : Next
For i = 3 To 1 : Console.WriteLine "never" : Next
Console.WriteLine i, " ", TypeName(i)
' > Integer Double Double Double 4
' > Integer Integer Integer Integer 4
' > 1234566
' > 1.23457e+06
' > 3 Integer
