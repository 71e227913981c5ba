total = 0
for i = 1, 1000000 do
    total = (total + i * 3 - 1) % 99991
end
print(total)
