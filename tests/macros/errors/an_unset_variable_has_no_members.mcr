Dim x
x.Go 1, 2
' error: 2: Object required: '[undefined]'
