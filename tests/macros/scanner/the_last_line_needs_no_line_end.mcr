Console.WriteLine "only line"
' > only line