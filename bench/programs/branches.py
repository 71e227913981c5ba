total = 0
start = 1
while start < 8000:
    n = start
    steps = 0
    while n != 1:
        if n % 2 == 0:
            n = n // 2
        elif n % 3 == 0:
            n = n // 3
        else:
            n = 3 * n + 1
        steps = steps + 1
    total = (total + steps) % 99991
    start = start + 1
print(total)
