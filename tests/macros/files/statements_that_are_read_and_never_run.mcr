Const kMax = 10, kName = "a ""quoted"" name"
If Empty Then
    Open "out.txt" For Output Access Write Lock Write As #1 Len = 16
    Open "in.txt" For Random As 2
    Print #1, "a" total; Tab(4) "b" Spc(2)
    Width #1, 80
    Input #2, v, total
    Close #1, #2 : Close
    ReDim bag(1 To 5, 4) : ReDim Preserve bag(6), more(2)
    Erase bag
    Randomize 3
    Call Show("x", , bag)
    v = v Is Nothing Or Null = Empty
    WithDlg dialog.Window(1)
        .Ok : .Title = 1mm * 2 ^ -1 Mod 7 \ total
        Set v = .Items("a")(2).Value
    End WithDlg
End If
