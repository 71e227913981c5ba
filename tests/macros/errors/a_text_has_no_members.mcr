Dim x
x = "abc"
Console.WriteLine x.Name
' error: 3: Object required: '[string: "abc"]'
