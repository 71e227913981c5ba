def run():
    table = {}
    for i in range(1, 1000001):
        table[i] = i * 2
    total = 0
    for i in range(1, 1000001):
        total += table[i] % 7
    print(len(table), total)


run()
