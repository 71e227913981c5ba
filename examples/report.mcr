' Reads sales from a text file and prints them as a table, with a total for each region.

Function toLeft(value, size)
    toLeft = Left(value & Space(size), size)
End Function

Function toRight(value, size)
    toRight = Right(Space(size) & value, size)
End Function

Sub printRow(region, product, units, amount)
    line = toLeft(region, 9) & toLeft(product, 18) & toRight(FormatNumber(units, 0), 7)
    Console.WriteLine line & toRight(FormatNumber(amount, 2), 14)
End Sub

Sub printRule
    Console.WriteLine String(48, "-")
End Sub

Sub printTotal(name, units, amount)
    printRow "Total", name, units, amount
End Sub

folder = WScript.ScriptFolder
If folder = "" Then folder = "."
Open folder & "/report.txt" For Input As #1

Console.WriteLine toLeft("Region", 9) & toLeft("Product", 18) & toRight("Units", 7) & toRight("Amount", 14)
printRule

last = ""
units = 0 : sales = 0
allUnits = 0 : allSales = 0
Do Until EOF(1)
    ' A closing quote ends a field, so the tab behind it ends another one, which is empty.
    Input #1, region, product, gap, count, price
    count = CLng(count) ' what is read is text
    amount = count * CDbl(price)
    shown = ""
    If region <> last Then
        If last <> "" Then
            printTotal last, units, sales
            Console.WriteLine
        End If
        units = 0 : sales = 0
        last = region
        shown = region
    End If
    printRow shown, product, count, amount
    units = units + count
    sales = sales + amount
    allUnits = allUnits + count
    allSales = allSales + amount
Loop
Close #1
printTotal last, units, sales
printRule
printTotal "of all", allUnits, allSales
