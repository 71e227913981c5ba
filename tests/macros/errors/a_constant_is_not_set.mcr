Const c = 1
Set c = Console
' error: 2: Illegal assignment: 'c'
