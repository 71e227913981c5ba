Sub Outer
Sub Inner
End Sub
End Sub
' error: 2: Error: Illegal nesting: 
