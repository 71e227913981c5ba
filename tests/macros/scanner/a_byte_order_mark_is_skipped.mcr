Console.WriteLine "behind a mark"
' > behind a mark
