Sub first
End Sub
Function second
  second = 2
End Function
