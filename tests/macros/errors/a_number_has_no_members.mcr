Dim x
x = 5
x.Name = 1
' error: 3: Object required: '[number: 5]'
