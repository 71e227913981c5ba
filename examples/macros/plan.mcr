' Plans the renovation of a room and asks how careful to be.
Plan.Add "Clear the room", 2
For wall = 1 To 4
    Plan.Add "Paint wall " & wall, 1.5
Next
If MsgBox("Two coats of paint?", mbYesNo, "Planner") = mbYes Then
    For i = 0 To Plan.Count - 1
        If InStr(Plan.Task(i), "Paint") > 0 Then Plan.Hours(i) = Plan.Hours(i) * 2
    Next
End If
If Plan.Total > 12 Then Plan.Exit 1
