Console.WriteLine 1mk, " ", 1mil, " ", 10mil, " ", 10mm, " ", 1in
Console.WriteLine 1.5in, " ", 0.5mm, " ", 1e3mm, " ", 0.5mk
Console.WriteLine 10MM, " ", 2Mil, " ", 3mmm
Console.WriteLine TypeName(10mil), " ", TypeName(1.5in), " ", 2mm + 1, " ", 1in / 1mil, " ", -1mm
Console.WriteLine 1000in
' > 100 2540 25400 1000000 2540000
' > 3.81e+06 50000 1e+08 50
' > 10 2 3
' > Integer Double 200001 1000 -100000
' > -2147483648
