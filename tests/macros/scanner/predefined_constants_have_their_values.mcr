Console.WriteLine vbOKOnly, mbYesNoCancel, vbRetryCancel, " ", vbQuestion, " ", mbInformation, " ", vbDefaultButton4
Console.WriteLine mbOK, mbCancel, mbAbort, mbRetry, mbIgnore, mbYes, mbNo
Console.WriteLine vbRed, " ", vbGreen, " ", vbBlue, " ", vbWhite, " ", vbBlack
Console.WriteLine vbSunday, vbSaturday, " ", vbUseDefault, " ", vbObjectError, " ", vbArray, " ", vbByte, " ", vbSimple
Console.WriteLine vbTrue, " ", vbFalse, " ", vbSystemModal, " ", mcComboBoxDropdownList
Console.WriteLine Len(vbCr), Len(vbLf), Len(vbCrLf), Len(vbNewLine), Len(vbTab), Len(vbNullChar), Len(vbNullString), Len(vbDirSeparator)
Console.WriteLine vbNewLine = vbCrLf, " ", vbCr & vbLf = vbCrLf, " ", "a" & vbDirSeparator & "b"
' > 035 32 64 768
' > 1234567
' > 255 65280 16711680 16777215 0
' > 17 -2 -2147221504 8192 17 4
' > -1 0 4096 3
' > 11221001
' > True True a\b
