' Tables of numbers in several formats.
Sub Row(x)
    Console.WriteLine Right(Space(12) & FormatNumber(x, 2), 12), " ", Int(x), " ", Fix(x), " ", Round(x, 1), " ", CInt(x), " ", Sgn(x)
End Sub
For Each x In Array(0, 0.5, -0.5, 1.25, 2.5, -1234.567)
    Row x
Next
Console.WriteLine FormatPercent(0.256, 1), " ", Hex(48879), " ", Oct(64), " ", Rgb(255, 128, 0), " ", Val("3.50 EUR")
Console.WriteLine Max(3, "10"), " ", Min(3, "10"), " ", Abs(-4), " ", Sqr(2), " ", Atn(1) * 4
Console.WriteLine TypeName(Max(1, 2)), " ", VarType("x"), " ", IsNumeric("12"), " ", IsArray(Array()), " ", IsObject(Nothing), " ", IsNull(Null)
Randomize 42
first = Rnd
Randomize 42
If first = Rnd And first = Rnd(0) And first < 1 Then Console.WriteLine "the same number again"
Console.WriteLine CByte(256)
' >         0.00 0 0 0 0 0
' >         0.50 0 0 0.5 0 1
' >        -0.50 -1 0 -0.5 0 -1
' >         1.25 1 1 1.2 1 1
' >         2.50 2 2 2.5 2 1
' >    -1,234.57 -1235 -1234 -1234.6 -1235 -1
' > 25.6% BEEF 100 33023 3.5
' > 10 3 4 1.41421 3.14159
' > Double 8 False True False True
' > the same number again
' error: 15: Error: Incorrect function argument(s):
