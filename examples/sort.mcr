' Sorts arrays in three ways. Arrays that are passed by reference are sorted in place.

Const last = 11
Dim numbers(last)

' Always the same numbers, in no order.
Sub Fill(target(), ByVal seed)
    For i = 0 To last
        seed = (seed * 137 + 71) Mod 1009
        target(i) = seed Mod 100
    Next
End Sub

Sub Swap(a, b)
    t = a
    a = b
    b = t
End Sub

Sub InsertionSort(list(), ByVal first, ByVal final)
    For i = first + 1 To final
        item = list(i)
        k = i - 1
        Do While k >= first
            If list(k) <= item Then Exit Do
            list(k + 1) = list(k)
            k = k - 1
        Loop
        list(k + 1) = item
    Next
End Sub

' Short pieces are left to the insertion sort.
Sub QuickSort(list(), ByVal first, ByVal final)
    Dim low, high, pivot
    If final - first < 4 Then
        InsertionSort list, first, final
        Exit Sub
    End If
    low = first
    high = final
    pivot = list((first + final) \ 2)
    Do While low <= high
        While list(low) < pivot
            low = low + 1
        Wend
        While list(high) > pivot
            high = high - 1
        Wend
        If low <= high Then
            Swap list(low), list(high)
            low = low + 1
            high = high - 1
        End If
    Loop
    QuickSort list, first, high
    QuickSort list, low, final
End Sub

' Leaves its argument as it is and gives a sorted copy.
Function Sorted(ByVal list(), ByVal final)
    Dim gap
    gap = (final + 1) \ 2
    Do While gap > 0
        For i = gap To final
            k = i
            Do While k >= gap
                If list(k - gap) <= list(k) Then Exit Do
                Swap list(k - gap), list(k)
                k = k - gap
            Loop
        Next
        gap = gap \ 2
    Loop
    Sorted = list
End Function

Sub Show(ByVal title, list(), ByVal final)
    text = ""
    For i = 0 To final
        text = text & " " & list(i)
    Next
    Console.WriteLine title, text
End Sub

Fill numbers, 7
Show "unsorted: ", numbers, last
ordered = Sorted(numbers, last)
Show "copy:     ", ordered, last
Show "original: ", numbers, last
QuickSort numbers, 0, last
Show "in place: ", numbers, last

Dim words(5)
words(0) = "pear" : words(1) = "Apple" : words(2) = "fig"
words(3) = "apple" : words(4) = "banana" : words(5) = "cherry"
QuickSort words, 0, 5
Show "words:    ", words, 5

' A thousand numbers, checked.
Dim many(999)
seed = 1
For i = 0 To 999
    seed = (seed * 137 + 71) Mod 10007
    many(i) = seed
Next
QuickSort many, 0, 999
good = True
For i = 1 To 999
    If many(i - 1) > many(i) Then good = False
Next
Console.WriteLine "1000 numbers in order: ", good
