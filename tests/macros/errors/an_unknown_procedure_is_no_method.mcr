Console.WriteLine "before"
foo 1
' > before
' error: 2: Object doesn't support this property or method: 'foo'
