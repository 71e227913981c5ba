rem The line behind this one is reported as the third.
x = Null + 1
' error: 3: Error: Object is nothing: 
