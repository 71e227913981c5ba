Sub Show(ByVal v)
Console.WriteLine TypeName(v), " [", v, "]"
End Sub
Sub Keep(ByVal o)
o.WriteLine "still the same object"
End Sub
Dim x
x = Null
Show Null
Show x
Show Empty
Show Nothing
Keep Console
Set x = Console
Keep x
' > Null []
' > Null []
' > Empty []
' > Object []
' > still the same object
' > still the same object
