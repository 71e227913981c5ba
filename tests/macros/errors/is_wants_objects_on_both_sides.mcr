Dim x, y
Set x = Console
Console.WriteLine x Is Console
y = 5
Console.WriteLine x Is y
' > True
' error: 5: Object required: '[number: 5]'
