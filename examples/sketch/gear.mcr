' Two spur gears that mesh, as a drawing for the workshop.

pi = 4 * Atn(1)

' A point on a circle, for the next line to go to.
Sub lineTo(cx, cy, radius, angle)
    x = cx + radius * Cos(angle)
    y = cy + radius * Sin(angle)
    If penDown Then Document.Shapes.AddLine penX, penY, x, y
    penX = x
    penY = y
    penDown = True
End Sub

' The outline, tooth by tooth: up the flank, over the tip, down, and along the root. Angles are
' parts of the pitch, which is the angle from one tooth to the next.
Sub outline(cx, cy, teeth, size, turn)
    middle = teeth * size / 2
    tip = middle + size
    root = middle - 1.25 * size
    pitch = 2 * pi / teeth
    penDown = False
    For tooth = 0 To teeth
        a = turn + tooth * pitch
        lineTo cx, cy, root, a - 0.31 * pitch
        If tooth < teeth Then
            lineTo cx, cy, middle, a - 0.24 * pitch
            lineTo cx, cy, middle + size / 2, a - 0.19 * pitch
            lineTo cx, cy, tip, a - 0.12 * pitch
            lineTo cx, cy, tip, a + 0.12 * pitch
            lineTo cx, cy, middle + size / 2, a + 0.19 * pitch
            lineTo cx, cy, middle, a + 0.24 * pitch
            lineTo cx, cy, root, a + 0.31 * pitch
        End If
    Next
End Sub

' The wheel inside the teeth: rim, bore with its key, and holes that make it lighter.
Sub wheel(cx, cy, teeth, size, holes)
    root = teeth * size / 2 - 1.25 * size
    Document.Shapes.AddCircle cx, cy, root - size
    Document.Shapes.AddCircle cx, cy, size * 2.2
    Document.Shapes.AddCircle cx, cy, size * 1.2
    Document.Shapes.AddRectangle cx - size * 0.3, cy - size * 1.6, size * 0.6, size * 0.6
    For i = 0 To holes - 1
        a = (i + 0.5) * 2 * pi / holes
        between = (root + size * 1.2) / 2
        Document.Shapes.AddCircle cx + between * Cos(a), cy + between * Sin(a), root * 0.19
    Next
End Sub

Sub centreLines(cx, cy, radius)
    Document.Shapes.AddLine cx - radius, cy, cx + radius, cy
    Document.Shapes.AddLine cx, cy - radius, cx, cy + radius
End Sub

Sub gear(cx, cy, teeth, size, turn, holes)
    Document.Layer = "Help lines"
    Document.Stroke = vbColorSkyBlue
    Document.StrokeWidth = 0.6
    Document.Dashed = True
    Document.Shapes.AddCircle cx, cy, teeth * size / 2
    centreLines cx, cy, teeth * size / 2 + 2 * size

    Document.Layer = "Gears"
    Document.Stroke = vbColorWhite
    Document.StrokeWidth = 1.5
    Document.Dashed = False
    outline cx, cy, teeth, size, turn
    wheel cx, cy, teeth, size, holes
End Sub

Options.Title = "Spur gears"
Options.Width = 400
Options.Height = 310
Options.Background = Rgb(16, 52, 96)

penX = 0
penY = 0
penDown = False
size = 8
gear 150, 150, 24, size, 0, 6
gear 150 + 18 * size, 150, 12, size, pi - pi / 12, 0

Document.Layer = "Text"
Document.Stroke = vbColorLightCyan
Document.Align = "center"
Document.TextSize = 13
Document.Shapes.AddText 150, 282, "24 teeth"
Document.Shapes.AddText 294, 226, "12 teeth"
Document.TextSize = 11
Document.Shapes.AddText 294, 246, "module " & size & ", distance " & 18 * size
