// The pieces that an editor colours: every class, and every byte of any text.

#include "../EngineFixture.h"
#include "MacroFiles.h"

#include <random>
#include <sstream>

namespace {

// The pieces up to the end of the text, `class:piece` each; `0` where a comment ends.
std::string pieces(UI_Tokenizer& tokenizer, const char* text) {
    tokenizer.SetInputString(text);
    std::ostringstream out;
    CStringA piece;
    for (;;) {
        const int kind = tokenizer.GetNextToken(piece);
        if (tokenizer.IsAtEnd())
            return out.str();
        if (out.tellp() > 0)
            out << '|';
        out << kind;
        if (!piece.IsEmpty())
            out << ':' << piece.c_str();
    }
}

TEST(PlainTokenizer, KnowsWordsAndWhiteSpaceOfOneLine) {
    UI_Tokenizer tokenizer;
    CStringA piece = "old";
    EXPECT_EQ(tokenizer.GetNextToken(piece), 0);
    EXPECT_STREQ(piece, "");
    EXPECT_EQ(pieces(tokenizer, "if \"a b\"\t\t  'c\r\nnext"),
              "6:if|10: |6:\"a|10: |6:b\"|9:\t\t|10:  |6:'c");
    EXPECT_EQ(pieces(tokenizer, "a\nb"), "6:a");
    EXPECT_EQ(pieces(tokenizer, ""), "");
    EXPECT_EQ(pieces(tokenizer, nullptr), "");
    EXPECT_EQ(tokenizer.GetNextToken(piece), 0) << "the end stays the end";
}

class EditorPieces : public EngineTest {};

TEST_F(EditorPieces, GivesEachKindOfPieceItsClass) {
    const struct {
        const char* text;
        const char* pieces;
    } cases[] = {
        // strings: with their quotes, the inner ones doubled; the names of predefined ones
        {R"("a")", R"(1:"a")"},
        {R"(x="")", R"(6:x|5:=|1:"")"},
        {R"("a""b"+"""")", R"(1:"a""b"|5:+|1:"""")"},
        {R"(vbCrLf & VBTAB)", R"(1:vbCrLf|10: |5:&|10: |1:VBTAB)"},
        // unterminated: up to the line end, and closed
        {"\"ab", R"(1:"ab")"},
        {"\"ab\nx", R"(1:"ab"|6:x)"},
        {"\"ab\r\nx", R"(1:"ab"|6:x)"},
        {R"("a"")", R"(1:"a""")"},
        {"\"", R"(1:"")"},
        // numbers as they stand, with marks and units
        {"1.5 1d3 2e-4 1. .5", "2:1.5|10: |2:1d3|10: |2:2e-4|10: |2:1.|10: |4:.|3:5"},
        {"007 12& &hFF &Hff& &h", "3:007|10: |3:12&|10: |3:&hFF|10: |3:&Hff&|10: |3:&h"},
        {"3mil 1.5in 10foo 1e+5", "3:3mil|10: |2:1.5in|10: |3:10foo|10: |3:1e|5:+|3:5"},
        {"mbYesNo vbOK", "3:mbYesNo|10: |6:vbOK"},
        // single characters, also those that the language does not know
        {"(),;:\\#", "4:(|4:)|4:,|4:;|4::|4:\\|4:#"},
        {"_[@$%!?\x01", "4:_|4:[|4:@|4:$|4:%|4:!|4:?|4:\x01"},
        {"\xC3\xA9", "4:\xC3|4:\xA9"},
        // keywords in any case, and operators
        {"IF Then eLsE Width", "5:IF|10: |5:Then|10: |5:eLsE|10: |5:Width"},
        {"a<>b>=c^-1", "6:a|5:<|5:>|6:b|5:>|5:=|6:c|5:^|5:-|3:1"},
        {"Nothing True WithDlg", "5:Nothing|10: |5:True|10: |5:WithDlg"},
        // names; behind a dot anything is one
        {"Alpha_1 stop return len", "6:Alpha_1|10: |6:stop|10: |6:return|10: |6:len"},
        {"x.end .If a(1).To .+",
         "6:x|4:.|6:end|10: |4:.|6:If|10: |6:a|4:(|3:1|4:)|4:.|6:To|10: |4:.|6:+"},
        {"x . end", "6:x|10: |4:.|10: |6:end"},
        {". If", "4:.|10: |6:If"},
        {"x.\nend", "6:x|4:.|5:end"},
        // white space by its runs; other kinds and line ends lie between the pieces
        {" \t\t x", "10: |9:\t\t|10: |6:x"},
        {"a\n\r\n\f\v b\r c", "6:a|10: |6:b|10: |6:c"},
        {"\n\n", ""},
        // comments
        {"'", "7:'|8|0"},
        {"' a\tIf 1", "7:'|10: |6:a|9:\t|6:If|10: |6:1|8|0"},
        {"x 'c\r\ny", "6:x|10: |7:'|6:c|8|0|6:y"},
        {"rem b\nREM c", "7:r|6:em|10: |6:b|8|0|7:R|6:EM|10: |6:c|8|0"},
        {"rem\nx", "7:r|6:em|8|0|6:x"},
        {"rem", "6:rem"},
        {"remark", "6:remark"},
        {"'a \n'b\n", "7:'|6:a|10: |8|0|7:'|6:b|8|0"},
        {"'a\rb\r\r\n c", "7:'|6:a|6:b|8|0|10: |6:c"},
        {"'\r\r", "7:'|8|0"},
        {"'it's \"so", "7:'|6:it's|10: |6:\"so|8|0"},
        {"x.rem y\nz", "6:x|4:.|7:r|6:em|10: |6:y|8|0|6:z"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(pieces(macro, c.text), c.pieces) << c.text;
}

TEST_F(EditorPieces, HasAColorForEachClass) {
    UI_Tokenizer plain;
    constexpr int colors[] = {0, 127, 32512, 32512, 0, 0xFF0000, 0, 0x7F7F7F, 0x7F7F7F, 0, 0};
    for (int kind = -1; kind <= 11; ++kind) {
        const int expected = kind >= 0 && kind <= 10 ? colors[kind] : 0;
        EXPECT_EQ(macro.GetFgColor(kind), expected) << kind;
        EXPECT_EQ(plain.GetFgColor(kind), kind == 5 ? 0x7F0000 : expected) << kind;
    }
}

TEST_F(EditorPieces, BeginsAnewWithEachText) {
    CStringA piece;
    macro.SetInputString("x. ' half a comment");
    for (int i = 0; i < 5; ++i)
        macro.GetNextToken(piece);
    EXPECT_EQ(pieces(macro, "end"), "5:end");
    macro.SetInputString("x.");
    macro.GetNextToken(piece);
    macro.GetNextToken(piece);
    EXPECT_EQ(pieces(macro, "end"), "5:end");
    macro.SetInputString(nullptr);
    EXPECT_EQ(macro.GetNextToken(piece), 0);
}

TEST_F(EditorPieces, LivesWithATextThatChangesUnderIt) {
    std::string text = "alpha ' a comment of some words\nbeta gamma";
    CStringA piece;
    macro.SetInputString(text.c_str());
    for (int i = 0; i < 5; ++i)
        macro.GetNextToken(piece);
    std::fill(text.begin() + 20, text.end(), '\0');
    std::vector<int> kinds;
    while (!macro.IsAtEnd() && kinds.size() < 100)
        kinds.push_back(macro.GetNextToken(piece));
    EXPECT_EQ(kinds, (std::vector<int>{10, 6, 10, 6, 8, 0, 0}));
}

// A macro that runs, and its errors, know nothing of an editor that colours meanwhile.
TEST_F(EditorPieces, DisturbsNoRun) {
    log.On("Color", [this] {
        EXPECT_EQ(pieces(macro, "\"open\n. x"), "1:\"open\"|4:.|10: |6:x");
        EXPECT_EQ(processor().GetLastErrorText(), "");
    });
    EXPECT_EQ(runText("x = 1\nLog.Color\nLog.Add x\nSub f\n Log.Color\n Log.Add \"f\"\nEnd Sub\nf"),
              (Lines{"1", "f"}));
}

TEST_F(EditorPieces, CopiesGoOnWhereTheOriginalStands) {
    CStringA piece;
    macro.SetInputString("a b");
    macro.GetNextToken(piece);
    UI_Macro copy(macro);
    copy.GetNextToken(piece);
    EXPECT_EQ(copy.GetNextToken(piece), 6);
    EXPECT_STREQ(piece, "b");
}

// --- Every byte comes back ---------------------------------------------------------------------

// Empty if each byte of the text is in one piece, or is white space between two of them.
std::string faultOf(UI_Tokenizer& tokenizer, const std::string& text) {
    const std::string_view all = text.c_str(); // a NUL ends it
    std::size_t behind = 0;
    CStringA piece;
    tokenizer.SetInputString(text.c_str());
    for (std::size_t count = 0;; ++count) {
        if (count > 3 * all.size() + 3)
            return "endless";
        const int kind = tokenizer.GetNextToken(piece);
        const std::size_t start = tokenizer.GetPieceStart();
        const std::size_t length = tokenizer.GetPieceLength();
        const std::string at = " at " + std::to_string(start);
        if (start < behind || start + length > all.size())
            return "out of place" + at;
        if (all.substr(behind, start - behind).find_first_not_of("\n\r\v\f") !=
            std::string_view::npos)
            return "lost bytes" + at;
        std::string expected(all.substr(start, length));
        if (kind == UI_Tokenizer::pcString && piece.View() != expected)
            expected += '"'; // it was open
        if (piece.View() != expected)
            return "another text" + at;
        const bool isEmpty = kind == UI_Tokenizer::pcEnd || kind == UI_Tokenizer::pcCommentEnd;
        if (isEmpty != (length == 0) || kind < 0 || kind > UI_Tokenizer::pcBlanks)
            return "wrong class" + at;
        if (kind == UI_Tokenizer::pcBlanks && expected.find_first_not_of(' ') != std::string::npos)
            return "not only blanks" + at;
        if (kind == UI_Tokenizer::pcTabs && expected.find_first_not_of('\t') != std::string::npos)
            return "not only tabs" + at;
        behind = start + length;
        if (tokenizer.IsAtEnd())
            return behind == all.size() ? "" : "ends" + at;
    }
}

// Bytes and bits of the language, in any order.
std::string makeText(std::mt19937& random) {
    static const char* const bits[] = {
        "'",  "rem ", "Rem\n", "\"",   "\"\"", "\r",  "\n", "\r\n", " ",    "\t",   ".",    "&h",
        "1",  "1e-",  "2d3",   "3mil", "x",    "If ", "(",  ")",    "vbLf", "\v\f", "a.b ", "_",
        "\\", "\xC3", "\xFF",  "end",  "+",    "^",   "& ", "é",    "#",    "mb",   "0&",   "\x7F",
    };
    std::string text;
    for (std::size_t length = random() % 40; text.size() < length;) {
        if (random() % 4 == 0)
            text += static_cast<char>(1 + random() % 255);
        else
            text += bits[random() % std::size(bits)];
    }
    return text;
}

TEST_F(EditorPieces, GivesBackEveryByteOfGeneratedTexts) {
    std::mt19937 random(20);
    for (int i = 0; i < 60000; ++i) {
        const std::string text = makeText(random);
        ASSERT_EQ(faultOf(macro, text), "") << testing::PrintToString(text);
    }
}

TEST_F(EditorPieces, GivesBackEveryByteOfEveryShortText) {
    const std::string bytes = "'r\"\r\n .e\tm1&x\v";
    std::string text;
    for (std::size_t length = 0; length <= 4; ++length) {
        std::vector<std::size_t> digits(length, 0);
        for (bool more = true; more;) {
            text.clear();
            for (const std::size_t digit : digits)
                text += bytes[digit];
            ASSERT_EQ(faultOf(macro, text), "") << testing::PrintToString(text);
            more = false;
            for (std::size_t& digit : digits) {
                digit = (digit + 1) % bytes.size();
                if (digit != 0) {
                    more = true;
                    break;
                }
            }
        }
    }
}

TEST_F(EditorPieces, GivesBackEveryByteOfMacrosCutAnywhere) {
    for (const auto& [file, line, text, isWholeFile] : macrofiles::findMacros()) {
        for (std::size_t length = 0; length <= text.size(); length += 7)
            ASSERT_EQ(faultOf(macro, text.substr(0, length)), "") << file << line << ", " << length;
        ASSERT_EQ(faultOf(macro, text), "") << file << line;
    }
}

TEST_F(EditorPieces, ManagesTextsWithoutLineEnds) {
    const std::string endless[] = {
        std::string(1 << 20, 'a'),  std::string(1 << 20, '"'),
        std::string(1 << 20, '\r'), "'" + std::string(1 << 20, '\r') + "x",
        std::string(1 << 20, '.'),  "'" + std::string(1 << 20, '\''),
        std::string(1 << 20, '9'),  "\"" + std::string(1 << 20, ' '),
    };
    for (const std::string& text : endless)
        EXPECT_EQ(faultOf(macro, text), "") << text.substr(0, 2);
    std::string rems;
    for (int i = 0; i < 100000; ++i)
        rems += "rem x\n";
    EXPECT_EQ(faultOf(macro, rems), "");
}

} // namespace
