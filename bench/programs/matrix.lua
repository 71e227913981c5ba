local size = 59
a, b, c = {}, {}, {}
for i = 0, size do
    a[i], b[i], c[i] = {}, {}, {}
    for j = 0, size do
        a[i][j] = (i + j) % 10
        b[i][j] = (i * j) % 10
    end
end
for i = 0, size do
    for j = 0, size do
        sum = 0
        for k = 0, size do
            sum = sum + a[i][k] * b[k][j]
        end
        c[i][j] = sum
    end
end
total = 0
for i = 0, size do
    for j = 0, size do
        total = (total * 7 + c[i][j]) % 99991
    end
end
print(total)
