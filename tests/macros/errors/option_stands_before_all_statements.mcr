x = 1
Option Explicit
' error: 2: Expected statement
