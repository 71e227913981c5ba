#include "GestureWords.h"

namespace {

bool isBlank(char c) { return c == ' ' || c == '\t'; }

GestureWord takeQuoted(const std::string& line, std::size_t& at) {
    GestureWord word{"", true};
    for (++at; at < line.size(); ++at) {
        if (line[at] != '"') {
            word.text += line[at];
        } else if (at + 1 < line.size() && line[at + 1] == '"') {
            word.text += '"';
            ++at;
        } else {
            ++at;
            return word;
        }
    }
    throw GestureError("a quote is not closed");
}

} // namespace

std::vector<GestureWord> SplitGesture(const std::string& line) {
    std::vector<GestureWord> words;
    std::size_t at = 0;
    while (true) {
        while (at < line.size() && isBlank(line[at]))
            ++at;
        if (at == line.size() || line[at] == '\'')
            return words;
        if (line[at] == '"') {
            words.push_back(takeQuoted(line, at));
            continue;
        }
        GestureWord word;
        while (at < line.size() && !isBlank(line[at]))
            word.text += line[at++];
        words.push_back(word);
    }
}
