Option Explicit
foo 1
' error: 2: Variable is undefined : 'foo'
