size = 60
a = [[(i + j) % 10 for j in range(size)] for i in range(size)]
b = [[(i * j) % 10 for j in range(size)] for i in range(size)]
c = [[0] * size for i in range(size)]
for i in range(size):
    for j in range(size):
        sum = 0
        for k in range(size):
            sum = sum + a[i][k] * b[k][j]
        c[i][j] = sum
total = 0
for i in range(size):
    for j in range(size):
        total = (total * 7 + c[i][j]) % 99991
print(total)
