local limit = 200000
composite = {}
for i = 0, limit do
    composite[i] = false
end
count = 0
total = 0
for i = 2, limit do
    if not composite[i] then
        count = count + 1
        total = (total + i) % 99991
        for k = i * i, limit, i do
            composite[k] = true
        end
    end
end
print(count .. " " .. total)
