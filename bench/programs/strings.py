def main():
    text = ""
    for i in range(1, 50001):
        text += "word" + str(i % 97) + " "
    parts = text.split(" ")
    total = 0
    for i in range(len(parts)):
        total = (total + len(parts[i]) * (i % 13)) % 99991
    print(len(text), total)


main()
