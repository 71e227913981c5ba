Console.WriteLine 007, " ", 010, " ", 0, " ", 12&, " ", 12&+3
Console.WriteLine &hff, " ", &HFF&, " ", &H10 + 1, " ", &hFFFFFFFF, " ", &h7fffffff, " ", &H
Console.WriteLine 1d3, " ", 1E3, " ", 1e-2, " ", 2.5e1, " ", 2., " ", 1.50
Console.WriteLine 1e+5, " ", 1e, " ", TypeName(1e), " ", TypeName(1e3), " ", TypeName(2.)
Console.WriteLine 10foo, " ", 3days + 1, " ", 1 &2
' > 7 10 0 12 15
' > 255 255 17 -1 2147483647 0
' > 1000 1000 0.01 25 2 1.5
' > 6 1 Integer Double Double
' > 10 4 12
