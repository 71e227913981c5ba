Dim x
x = 1
Stop
' error: 3: Object doesn't support this property or method: 'Stop'
