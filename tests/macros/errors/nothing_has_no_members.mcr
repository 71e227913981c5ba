Dim x
Set x = Console
x.WriteLine "member"
Set x = Nothing
x.WriteLine "never"
' > member
' error: 5: Error: Object is nothing: 
