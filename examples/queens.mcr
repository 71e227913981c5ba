' How many ways are there to place N queens on a board of N x N so that none attacks another?

Option Explicit

Const largest = 7
Dim columns(largest), rising(2 * largest), falling(2 * largest), places(largest)
Dim solutions, size, row, column, text

' Tries every column of this row; the rows below it hold their queens already.
Sub Place(ByVal row)
    Dim column
    If row = size Then
        solutions = solutions + 1
        If solutions = 1 And size = largest + 1 Then ShowBoard
        Exit Sub
    End If
    For column = 0 To size - 1
        If IsFree(row, column) Then
            Mark row, column, True
            places(row) = column
            Place row + 1
            Mark row, column, False
        End If
    Next
End Sub

Function IsFree(row, column)
    IsFree = Not (columns(column) Or rising(row + column) Or falling(row - column + largest))
End Function

Sub Mark(row, column, taken)
    columns(column) = taken
    rising(row + column) = taken
    falling(row - column + largest) = taken
End Sub

Sub ShowBoard
    For row = 0 To size - 1
        text = ""
        For column = 0 To size - 1
            If places(row) = column Then text = text & " Q" Else text = text & " ."
        Next
        Console.WriteLine text
    Next
End Sub

For size = 1 To largest + 1
    solutions = 0
    Place 0
    Console.WriteLine size, " queens: ", solutions
Next
