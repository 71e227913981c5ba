Dim n, m
n = 5
m = n(1)
' error: 3: Object doesn't support this property or method: 'n'
