' Prints a multiplication table and its largest odd product.
For row = 1 To 4
    line = ""
    For column = 1 To 4
        product = row * column
        If product Mod 2 = 1 Then largest = product
        line = line & " " & product
    Next
    Console.WriteLine row, ":", line
Next
Console.WriteLine "Largest odd product: ", largest
