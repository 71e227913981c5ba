App.ShowOptions
withDlg Options
  .Title = "A house in the sun"
  .Width = 420
  .Height = 300
  .ChooseColor
  withDlg ColorDialog
    .Red = 214
    .Green = 238
    .Blue = 255
    .OK
  end withDlg
  .OK
end withDlg
Document.Layer = "Meadow"
Document.Stroke = vbColorOliveDrab
Document.Fill = vbColorYellowGreen
Document.Shapes.AddRectangle -10, 220, 440, 90
Document.Layer = "House"
Document.Stroke = vbColorSaddleBrown
Document.StrokeWidth = 3
Document.Fill = vbColorBisque
Document.Shapes.AddRectangle 110, 130, 160, 110
Document.Fill = vbNoColor
Document.StrokeWidth = 8
Document.Stroke = vbColorFireBrick
Document.Shapes.AddLine 96, 136, 190, 60
Document.Shapes.AddLine 190, 60, 284, 136
Document.StrokeWidth = 2
Document.Stroke = vbColorDimGray
Document.Fill = vbColorLightCyan
Document.Shapes.AddRectangle 130, 155, 34, 34
Document.Shapes.AddRectangle 20, 20, 34, 34
Document.BeginDrag 30, 30
Document.DragTo 232, 165
Document.EndDrag
Document.Fill = vbColorSienna
Document.Shapes.AddRectangle 180, 180, 34, 60
Document.Shapes("Rectangle5").Name = "Door"
Document.Fill = vbColorGold
Document.Shapes.AddCircle 207, 212, 2.5
Document.Layer = "Sky"
Document.Stroke = vbColorOrange
Document.Fill = vbColorTomato
Document.Shapes.AddCircle 350, 70, 60
Document.Undo
Document.Shapes.AddCircle 350, 70, 30
Document.Shapes("Circle3").Name = "Sun"
Document.Paint vbColorOrange, vbColorGold
Document.Pick Document.X, Document.Y
Document.Shapes.AddLine Document.X, Document.Y - 40, Document.X, Document.Y - 56
Document.Shapes.AddLine Document.X, Document.Y + 96, Document.X, Document.Y + 112
Document.Shapes.AddLine Document.X - 40, Document.Y - 56, Document.X - 56, Document.Y - 56
Document.Shapes.AddLine Document.X + 96, Document.Y, Document.X + 112, Document.Y
Document.Shapes.AddLine Document.X - 84, Document.Y - 28, Document.X - 96, Document.Y - 40
Document.Shapes.AddLine Document.X + 68, Document.Y + 68, Document.X + 80, Document.Y + 80
Document.Shapes.AddLine Document.X - 12, Document.Y - 68, Document.X, Document.Y - 80
Document.Shapes.AddLine Document.X - 68, Document.Y + 68, Document.X - 80, Document.Y + 80
Document.Layer = "Names"
Document.Stroke = vbColorBlack
Document.Shapes.AddText 190, 280, "?"
App.ShowText
withDlg TextDialog
  .Text = "Casa ""Sol"""
  .Align = "center"
  .ChooseFont
  withDlg FontDialog
    .Family = "serif"
    .Size = 22
    .Italic = True
    .OK
  end withDlg
  .ChooseColor
  withDlg ColorDialog
    .Color = vbColorDarkSlateGray
    .OK
  end withDlg
  .OK
end withDlg
Document.Select "Door"
Document.Move -2, 0
Document.Undo
Document.Redo
Document.Undo
