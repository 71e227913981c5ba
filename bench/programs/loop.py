total = 0
for i in range(1, 1000001):
    total = (total + i * 3 - 1) % 99991
print(total)
