' Adds up prices; the list holds a mistake.
total = 0
list = Array(12, 30, 0)
For i = 0 To 2
    total = total + Discount(list(i), 10)
Next
share = 100 \ list(2)
Shop.Say total, share

Function Discount(price, percent)
    off = price * percent / 100
    Discount = price - off
End Function
