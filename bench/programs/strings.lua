text = ""
local pieces = {}
for i = 1, 50000 do
    pieces[#pieces + 1] = "word" .. (i % 97) .. " "
end
text = table.concat(pieces)
parts = {}
local from = 1
while true do
    local at = text:find(" ", from, true)
    if not at then
        break
    end
    parts[#parts + 1] = text:sub(from, at - 1)
    from = at + 1
end
parts[#parts + 1] = text:sub(from)
total = 0
for i = 0, #parts - 1 do
    total = (total + #parts[i + 1] * (i % 13)) % 99991
end
print(#text .. " " .. total)
