' Plots a damped oscillation and its envelope, with axes, a grid and a legend.

Const leftEdge = 60
Const topEdge = 50
Const plotWidth = 400
Const plotHeight = 220
Const firstX = 0
Const lastX = 12
Const firstY = -1
Const lastY = 1

Function damped(x)
    damped = Exp(-x / 4) * Cos(2.5 * x)
End Function

Function envelope(x)
    envelope = Exp(-x / 4)
End Function

Function mirrored(x)
    mirrored = -Exp(-x / 4)
End Function

' From the numbers of the function to places on the page.
Function pageX(x)
    pageX = leftEdge + (x - firstX) * plotWidth / (lastX - firstX)
End Function

Function pageY(y)
    pageY = topEdge + (lastY - y) * plotHeight / (lastY - firstY)
End Function

Sub pen(layer, colour, thickness, dashed)
    Document.Layer = layer
    Document.Stroke = colour
    Document.StrokeWidth = thickness
    Document.Dashed = dashed
End Sub

Sub label(x, y, text, align)
    Document.Align = align
    Document.Shapes.AddText x, y, text
End Sub

Sub grid
    pen "Grid", vbColorGainsboro, 0.7, False
    For x = firstX + 1 To lastX
        Document.Shapes.AddLine pageX(x), topEdge, pageX(x), topEdge + plotHeight
    Next
    For i = -4 To 4
        Document.Shapes.AddLine leftEdge, pageY(i / 4), leftEdge + plotWidth, pageY(i / 4)
    Next
End Sub

Sub arrow(x, y, dx, dy)
    Document.Shapes.AddLine x, y, x - 8 * dx + 4 * dy, y - 8 * dy - 4 * dx
    Document.Shapes.AddLine x, y, x - 8 * dx - 4 * dy, y - 8 * dy + 4 * dx
End Sub

Sub axes
    pen "Axes", vbColorDimGray, 1.4, False
    axis = pageY(0)
    Document.Shapes.AddLine leftEdge, topEdge + plotHeight, leftEdge, topEdge - 22
    arrow leftEdge, topEdge - 22, 0, -1
    Document.Shapes.AddLine leftEdge, axis, leftEdge + plotWidth + 22, axis
    arrow leftEdge + plotWidth + 22, axis, 1, 0
    Document.TextSize = 11
    For x = 2 To lastX Step 2
        Document.Shapes.AddLine pageX(x), axis - 3, pageX(x), axis + 3
        label pageX(x), axis + 16, x, "center"
    Next
    For i = -2 To 2
        Document.Shapes.AddLine leftEdge - 3, pageY(i / 2), leftEdge + 3, pageY(i / 2)
        label leftEdge - 8, pageY(i / 2) + 4, i / 2, "right"
    Next
    label leftEdge + plotWidth + 22, axis + 16, "t", "center"
    label leftEdge + 8, topEdge - 16, "f(t)", "left"
End Sub

' Draws the function of that name in short straight pieces, or in every second of them.
Sub curve(name, pieces, withGaps)
    Set f = GetRef(name)
    x = firstX
    y = f(x)
    For i = 1 To pieces
        nextX = firstX + (lastX - firstX) * i / pieces
        nextY = f(nextX)
        If Not withGaps Or i Mod 2 = 1 Then Document.Shapes.AddLine pageX(x), pageY(y), pageX(nextX), pageY(nextY)
        x = nextX
        y = nextY
    Next
End Sub

Sub legend(row, text)
    y = topEdge + 16 + 18 * row
    Document.Shapes.AddLine 312, y, 344, y
    label 352, y + 4, text, "left"
End Sub

Options.Title = "A damped oscillation"
Options.Width = 500
Options.Height = 300

grid
axes
pen "Envelope", vbColorDarkOrange, 1.5, False
curve "envelope", 100, True
curve "mirrored", 100, True
pen "Curve", vbColorRoyalBlue, 2.5, False
curve "damped", 240, False

pen "Legend", vbColorSilver, 1, False
Document.Fill = vbColorWhite
Document.Shapes.AddRectangle 300, topEdge + 4, 152, 44
Document.TextSize = 12
pen "Legend", vbColorRoyalBlue, 2.5, False
legend 0, "damped wave"
pen "Legend", vbColorDarkOrange, 1.5, True
legend 1, "envelope"
