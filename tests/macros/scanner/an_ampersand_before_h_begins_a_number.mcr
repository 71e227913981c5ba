hello = "x"
y = "a" & hello
y = "a"&hello
' error: 3: Syntax error: 
