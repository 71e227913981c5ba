' Procedures that a host calls by name.

Function Area(across, down)
    Area = across * down
End Function

Sub Grow(size, ByVal by)
    size = size + by
End Sub
