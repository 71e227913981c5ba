' Reads sales from a text file and prints them as a table, with a total for each region.

' Prints a value so that it ends in front of a column.
Sub rightAligned(column, value)
    Print #2, Tab(column - Len(CStr(value))); value;
End Sub

Sub printRule
    Print #2, "------------------------------------------------"
End Sub

Sub printTotal(name, units, amount)
    Print #2, "Total "; name;
    rightAligned 37, units
    rightAligned 49, amount
    Print #2,
End Sub

folder = WScript.ScriptFolder
If folder = "" Then folder = "."
Open folder & "/report.txt" For Input As #1
Open "/dev/stdout" For Append As #2

Print #2, "Region"; Tab(10); "Product"; Tab(32); "Units"; Tab(43); "Amount"
printRule

last = ""
units = 0 : sales = 0
allUnits = 0 : allSales = 0
Do Until EOF(1)
    ' A closing quote ends a field, so the tab behind it ends another one, which is empty.
    Input #1, region, product, gap, count, price
    count = Abs(count) ' fields are text until they are used as numbers
    amount = count * Abs(price)
    If region <> last And last <> "" Then
        printTotal last, units, sales
        Print #2,
        units = 0
        sales = 0
    End If
    If region <> last Then Print #2, region;
    last = region
    Print #2, Tab(10); product;
    rightAligned 37, count
    rightAligned 49, amount
    Print #2,
    units = units + count
    sales = sales + amount
    allUnits = allUnits + count
    allSales = allSales + amount
Loop
printTotal last, units, sales
printRule
printTotal "of all", allUnits, allSales
Close
