Dim i
Do
i = i + 1
Console.WriteLine i
Loop While i + Null < 3
' > 1
' error: 5: Error: Object is nothing: 
