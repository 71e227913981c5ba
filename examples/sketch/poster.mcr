App.ShowOptions
withDlg Options
  .Title = "Poster"
  .Width = 300
  .Height = 400
  .Background = vbColorMidnightBlue
  .OK
end withDlg
App.ShowOptions
withDlg Options
  .Title = "Not this one"
  .Background = vbColorWhite
  .ChooseColor
  withDlg ColorDialog
    .Color = vbColorRed
    .Cancel
  end withDlg
  .Cancel
end withDlg
Document.Layer = "Stars"
Document.Stroke = vbNoColor
Document.Fill = vbColorWhite
Document.Shapes.AddCircle 40, 60, 1.5
Document.Shapes.AddCircle 90, 30, 1
Document.Shapes.AddCircle 150, 80, 1.5
Document.Shapes.AddCircle 220, 40, 1
Document.Shapes.AddCircle 265, 110, 1.5
Document.Shapes.AddCircle 60, 150, 1
Document.Shapes.AddCircle 180, 190, 1
Document.Layer = "Hills"
Document.Fill = vbColorSlateBlue
Document.Shapes.AddCircle 60, 420, 140
Document.Fill = vbColorDarkSlateBlue
Document.Shapes.AddCircle 250, 430, 150
Document.Layer = "Moon"
Document.Fill = vbColorLightGoldenrodYellow
Document.Shapes.AddCircle 150, 300, 40
Document.Shapes("Circle10").Name = "Moon"
Document.Fill = vbColorMidnightBlue
Document.Shapes.AddCircle 166, 290, 34
Document.Shapes("Circle11").Name = "Shadow"
Document.Select "Moon", "Shadow"
Document.BeginDrag 130, 310
Document.DragTo 172, 150
Document.EndDrag
Document.Layer = "Rocket"
Document.Stroke = vbColorWhiteSmoke
Document.StrokeWidth = 2
Document.Fill = vbColorCrimson
Document.Shapes.AddRectangle 92, 246, 16, 44
Document.Fill = vbNoColor
Document.Shapes.AddLine 92, 246, 100, 226
Document.Shapes.AddLine 100, 226, 108, 246
Document.Shapes.AddLine 92, 278, 82, 294
Document.Shapes.AddLine 82, 294, 92, 290
Document.Shapes.AddLine 108, 278, 118, 294
Document.Shapes.AddLine 118, 294, 108, 290
Document.Stroke = vbColorGold
Document.Dashed = True
Document.Shapes.AddLine 100, 292, 100, 340
Document.Dashed = False
Document.Layer = "Drafts"
Document.Stroke = vbColorRed
Document.Shapes.AddLine 0, 0, 300, 400
Document.LayerVisible("Drafts") = False
Document.Layer = "Title"
Document.Stroke = vbColorWhite
Document.Align = "center"
Document.TextSize = 30
Document.Shapes.AddText 150, 372, "TO THE MOON"
App.ShowText
withDlg TextDialog
  .ChooseFont
  withDlg FontDialog
    .Bold = True
    .Family = "monospace"
    .OK
  end withDlg
  .OK
end withDlg
Document.TextSize = 12
Document.Shapes.AddText 150, 390, "& back again, <daily>"
Document.SelectAll
Document.SelectNone
Document.Pick 150, 386
Document.Shapes("Text2").Stroke = vbColorLightSteelBlue
