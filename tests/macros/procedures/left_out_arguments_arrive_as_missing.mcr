Sub Three(a, b, c)
Console.WriteLine "[", a, "][", b, "][", c, "]"
End Sub
Three , 2, 3
Three 1, , 3
Three , , 3
Call Three(1, , 3)
Console.WriteLine , "x", , "y"
' > [][2][3]
' > [1][][3]
' > [][][3]
' > [1][][3]
' > xy
