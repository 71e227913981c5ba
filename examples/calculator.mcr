' A calculator that reads by recursive descent, one procedure for each level of the grammar:
'
'     sum      product { ("+" | "-") product }
'     product  power { ("*" | "/") power }
'     power    factor [ "^" power ]
'     factor   number | name | "-" factor | "(" sum ")"
'
' A formula is an array of tokens: numbers, and texts for the rest. The empty text ends it.

Option Explicit

Dim tokens, count, position, problem
Dim names(9), values(9), known
Dim token

Sub Store(ByVal name, ByVal value)
    names(known) = name
    values(known) = value
    known = known + 1
End Sub

Function ValueOf(name)
    Dim i
    For i = 0 To known - 1
        If names(i) = name Then
            ValueOf = values(i)
            Exit Function
        End If
    Next
    ValueOf = 1
    Complain "unknown name " & name
End Function

' The first problem is the one that counts; what follows from it is not told.
Sub Complain(text)
    If problem = "" Then problem = text & " at token " & position
End Sub

' The current token if it is the one that is asked for.
Function Found(what)
    Found = False
    If TypeName(tokens(position)) = "String" Then
        If tokens(position) = what Then
            position = position + 1
            Found = True
        End If
    End If
End Function

Function Sum
    Dim result
    result = Product()
    Do
        If Found("+") Then
            result = result + Product()
        ElseIf Found("-") Then
            result = result - Product()
        Else
            Exit Do
        End If
    Loop
    Sum = result
End Function

Function Product
    Dim result, divisor
    result = Power()
    Do
        If Found("*") Then
            result = result * Power()
        ElseIf Found("/") Then
            divisor = Power()
            If divisor = 0 Then
                Complain "division by zero"
                divisor = 1
            End If
            result = result / divisor
        Else
            Exit Do
        End If
    Loop
    Product = result
End Function

Function Power
    Power = Factor()
    If Found("^") Then Power = Power ^ Power()
End Function

Function Factor
    Factor = 0
    If TypeName(tokens(position)) <> "String" Then
        Factor = tokens(position)
        position = position + 1
    ElseIf Found("-") Then
        Factor = -Factor()
    ElseIf Found("(") Then
        Factor = Sum()
        If Not Found(")") Then Complain "a closing parenthesis is missing"
    ElseIf tokens(position) = "" Or tokens(position) = ")" Then
        Complain "a value is missing"
    Else
        Factor = ValueOf(tokens(position))
        position = position + 1
    End If
End Function

Sub Put(token)
    tokens(count) = token
    count = count + 1
End Sub

' Computes what has been put, prints it, and makes room for the next formula.
Sub Calculate
    Dim i, text, result
    For i = 0 To count - 1
        text = text & tokens(i) & " "
    Next
    tokens(count) = ""
    position = 0
    problem = ""
    result = Sum()
    If tokens(position) <> "" Then Complain "unexpected " & tokens(position)
    If problem = "" Then Console.WriteLine text, "= ", result Else Console.WriteLine text, "? ", problem
    count = 0
End Sub

ReDim tokens(40)
count = 0
known = 0
Store "pi", 3.14159
Store "ten", 10

Put 1 : Put "+" : Put 2 : Put "*" : Put 3 : Calculate
Put "(" : Put 1 : Put "+" : Put 2 : Put ")" : Put "*" : Put 3 : Calculate
Put 2 : Put "^" : Put 3 : Put "^" : Put 2 : Calculate
Put 20 : Put "-" : Put 5 : Put "-" : Put 3 : Calculate
Put "-" : Put "(" : Put "ten" : Put "/" : Put 4 : Put ")" : Calculate
Put "pi" : Put "*" : Put "ten" : Put "^" : Put 2 : Calculate

Put 1 : Put "/" : Put "(" : Put 2 : Put "-" : Put 2 : Put ")" : Calculate
Put "(" : Put 1 : Put "+" : Put 2 : Calculate
Put 4 : Put "*" : Calculate
Put "radius" : Put "^" : Put 2 : Calculate
Put 1 : Put 2 : Calculate

' Depth costs no native stack: ten thousand parentheses.
ReDim tokens(20001)
For token = 1 To 10000
    Put "("
Next
Put 42
For token = 1 To 10000
    Put ")"
Next
tokens(count) = ""
position = 0
Console.WriteLine "nested ten thousand deep: ", Sum()
