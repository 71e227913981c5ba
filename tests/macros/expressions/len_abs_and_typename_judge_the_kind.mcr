Dim a(2), s, n, d, b, o
s = "hello"
n = 12
d = 1.5
b = True
Set o = Console
Console.WriteLine Len(s), " ", Len(n), " ", Len(d), " ", Len(b), " ", Len(a), " ", Len(u), " ", Len("")
Console.WriteLine Len("12"), " ", Len(12), " ", Len(s & n), " ", Len(vbCrLf), " ", Len(vbNullString)
Console.WriteLine Abs(-5), " ", TypeName(Abs(-5)), " ", Abs("-3.5"), " ", Abs(True), " ", Abs(u)
Console.WriteLine TypeName(s), " ", TypeName(n), " ", TypeName(d), " ", TypeName(b), " ", TypeName(a), " ", TypeName(a(0))
Console.WriteLine TypeName(Nothing), " ", TypeName(Null), " ", TypeName(Console), " ", TypeName(o)
Console.WriteLine Len("abc") + 1, " ", Len(CStr(Abs(-12.5))), " ", lEN("x")
' > 5 4 8 1 0 0 0
' > 2 4 7 2 0
' > 5 Double 3.5 1 0
' > String Integer Double Boolean Array Empty
' > Object Null Macro object Macro object
' > 4 4 1
