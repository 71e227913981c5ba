limit = 200000
composite = [False] * (limit + 1)
count = 0
total = 0
for i in range(2, limit + 1):
    if not composite[i]:
        count = count + 1
        total = (total + i) % 99991
        for k in range(i * i, limit + 1, i):
            composite[k] = True
print(count, total)
