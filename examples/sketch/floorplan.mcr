' Draws the floor plan that floorplan.txt describes. Each line of it is a room, a door, a window or
' a piece of furniture: kind, name, place and size in metres, and a colour as three numbers. The
' size of a door or a window is 0 in the direction in which it does not run.

Const metre = 42
Const margin = 40

Function toPage(length)
    toPage = margin + length * metre
End Function

Sub pen(layer, stroke, thickness, fill)
    Document.Layer = layer
    Document.Stroke = stroke
    Document.StrokeWidth = thickness
    Document.Fill = fill
End Sub

Sub room(name, x, y, w, h, colour)
    pen "Rooms", vbColorDarkSlateGray, 5, colour
    Document.Shapes.AddRectangle toPage(x), toPage(y), w * metre, h * metre
    pen "Names", vbColorDarkSlateGray, 1, vbNoColor
    Document.TextSize = 13
    Document.Shapes.AddText toPage(x + w / 2), toPage(y + h / 2), name
    Document.TextSize = 10
    Document.Shapes.AddText toPage(x + w / 2), toPage(y + h / 2) + 14, Round(w * h, 1) & " sq m"
End Sub

' A gap in the wall, and the leaf that stands open.
Sub door(x, y, w, h)
    pen "Doors", vbColorWhiteSmoke, 6, vbNoColor
    Document.Shapes.AddLine toPage(x), toPage(y), toPage(x + w), toPage(y + h)
    pen "Doors", vbColorSaddleBrown, 2, vbNoColor
    openX = x + h * 0.85 + w * 0.5
    openY = y + w * 0.85 + h * 0.5
    Document.Shapes.AddLine toPage(x), toPage(y), toPage(openX), toPage(openY)
End Sub

Sub glass(x, y, w, h)
    pen "Windows", vbColorWhite, 5, vbNoColor
    Document.Shapes.AddLine toPage(x), toPage(y), toPage(x + w), toPage(y + h)
    pen "Windows", vbColorDeepSkyBlue, 2, vbNoColor
    Document.Shapes.AddLine toPage(x), toPage(y), toPage(x + w), toPage(y + h)
End Sub

Sub furniture(x, y, w, h, colour)
    pen "Furniture", vbColorGray, 1, colour
    Document.Shapes.AddRectangle toPage(x), toPage(y), w * metre, h * metre
End Sub

Sub measure(x1, y1, x2, y2, text)
    pen "Measures", vbColorGray, 1, vbNoColor
    Document.Shapes.AddLine x1, y1, x2, y2
    Document.Shapes.AddCircle x1, y1, 2
    Document.Shapes.AddCircle x2, y2, 2
    ' The text stands beside the middle.
    across = (x2 - x1) / (x2 - x1 + y2 - y1)
    x = (x1 + x2) / 2 + 20 * (1 - across)
    y = (y1 + y2) / 2 + 14 * across
    Document.TextSize = 11
    Document.Shapes.AddText x, y, text
End Sub

folder = WScript.ScriptFolder
If folder = "" Then folder = "."
' The layers, from the lowest to the highest.
For Each layer In Array("Rooms", "Furniture", "Doors", "Windows", "Names", "Measures")
    Document.Layer = layer
Next
Document.Align = "center"

rooms = 0
area = 0
houseWidth = 0
houseHeight = 0
Open folder & "/floorplan.txt" For Input As #1
Do Until EOF(1)
    ' A closing quote ends a field, so the tab behind it ends another one, which is empty.
    Input #1, kind, name, gap, x, y, w, h, red, green, blue
    x = Val(x) : y = Val(y) : w = Val(w) : h = Val(h)
    colour = Rgb(Val(red), Val(green), Val(blue))
    Select Case kind
    Case "room"
        room name, x, y, w, h, colour
        rooms = rooms + 1
        area = area + w * h
        houseWidth = Max(houseWidth, x + w)
        houseHeight = Max(houseHeight, y + h)
    Case "door"
        door x, y, w, h
    Case "window"
        glass x, y, w, h
    Case "item"
        furniture x, y, w, h, colour
    End Select
Loop
Close #1

Options.Title = "Floor plan: " & rooms & " rooms, " & Round(area, 1) & " sq m"
Options.Width = 2 * margin + 20 + houseWidth * metre
Options.Height = 2 * margin + houseHeight * metre
Options.Background = vbColorWhiteSmoke
edge = toPage(houseWidth)
bottom = toPage(houseHeight)
measure margin, bottom + 16, edge, bottom + 16, houseWidth & " m"
measure edge + 16, margin, edge + 16, bottom, houseHeight & " m"
