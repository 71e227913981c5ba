total = 0
start = 1
while start < 8000 do
    n = start
    steps = 0
    while n ~= 1 do
        if n % 2 == 0 then
            n = n // 2
        elseif n % 3 == 0 then
            n = n // 3
        else
            n = 3 * n + 1
        end
        steps = steps + 1
    end
    total = (total + steps) % 99991
    start = start + 1
end
print(total)
