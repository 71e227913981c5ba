#include "language/Scanner.h"

#include <UI_MacroProcessor.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "language/Tokens.h"
#include "language/Words.h"

namespace {

struct Scan {
    explicit Scan(std::string source) : text(std::move(source)), cursor(text.c_str()) {
        scanner.SetText(&cursor);
    }
    int Next() {
        int token = scanner.ScanToken();
        scanner.SetLastToken(token);
        return token;
    }

    std::string text;
    const char* cursor;
    MacroScanner scanner;
};

// The tokens up to the end, each with its value: `name:x string:a 12 1.5r NL 267 + ( ldot`.
std::string tokens(const std::string& text) {
    Scan scan(text);
    std::ostringstream out;
    for (;;) {
        const int token = scan.Next();
        const MacroToken& value = scan.scanner.GetValue();
        if (out.tellp() > 0 && token != tokEnd)
            out << ' ';
        if (token == tokName)
            out << "name:" << value.entry->text.c_str();
        else if (token == tokString)
            out << "string:" << value.entry->text.c_str();
        else if (token == tokInteger)
            out << value.integer;
        else if (token == tokReal)
            out << value.real << 'r';
        else if (token == tokNewLine)
            out << "NL";
        else if (token == tokLeadingDot)
            out << "ldot";
        else if (token == tokDot)
            out << "rdot";
        else if (token == tokUnterminated)
            out << "unterminated:" << value.entry->text.c_str();
        else if (token > ' ' && token < 127)
            out << static_cast<char>(token);
        else if (token != tokEnd)
            out << token;
        if (token <= 0)
            return out.str();
    }
}

struct Row {
    const char* text;
    const char* expected;
};

void expectRows(const std::vector<Row>& rows) {
    for (const Row& row : rows)
        EXPECT_EQ(tokens(row.text), row.expected) << "text: " << row.text;
}

TEST(Scanner, NumbersFoldTheirUnits) {
    expectRows({
        {"007 010 0 000", "7 10 0 0"},
        {"3000000000", "3000000000"},
        {"99999999999999999999", "9223372036854775807"},
        {"12& &hff& &H 12&+3 1 &2", "12 255 0 12 317 3 1 309 2"},
        {"&HFFFFFFFF &h80000000 &hFFFFFFFFF", "-1 -2147483648 -1"},
        {"1d3 1e3 1E-2 2.5d1", "1000r 1000r 0.01r 25r"},
        {"1e 1e+5 1e-x", "1 1 317 5 1 315 name:x"},
        {"1. 1.25", "1r 1.25r"},
        {"10mm 10MM 10mil 2mk 1.5in 10foo 3mmm", "1000000 10 25400 200 3.81e+06r 10 3"},
        {"1e3mm 0.5mk 1mil", "1e+08r 50r 2540"},
        {"2147in 2147.0in", "-2147483648 5.45338e+09r"},
        {"1e999 1e-999", "infr 0r"},
        {".5", "ldot 5"},
    });
}

TEST(Scanner, StringsEndAtAQuoteOrNotAtAll) {
    expectRows({
        {"\"a\"\"b\" \"\" \"\"\"\"", "string:a\"b string: string:\""},
        {"\"\xc3\xa9'rem \"", "string:\xc3\xa9'rem "},
        {"x \"ab", "name:x unterminated:ab"},
        {"\"ab\ny", "unterminated:ab"},
        {"\"ab\r\ny", "unterminated:ab"},
        {"\"", "unterminated:"},
    });
}

TEST(Scanner, DotsLookAtWhatStandsBefore) {
    expectRows({
        {"a.b", "name:a rdot name:b"},
        {"a .b", "name:a ldot name:b"},
        {"a. b", "name:a rdot name:b"},
        {"a(1).b", "name:a ( 1 ) rdot name:b"},
        {".b", "ldot name:b"},
        {"  .b", "ldot name:b"},
        {"a\n.b", "name:a NL ldot name:b"},
        {"x.end x.+ x.vbCr", "name:x rdot name:end name:x rdot name:+ name:x rdot name:vbCr"},
        {"x = . y", "name:x 312 -343"},
        {"x.5", "name:x rdot 5"},
    });
}

TEST(Scanner, WordsIgnoreCaseAndKeepTheirSpelling) {
    expectRows({
        {"If THEN eLsE", "263 264 265"},
        {"Foo_1 remark rem", "name:Foo_1 name:remark name:rem"},
        {"VBCRLF vbokcancel vbObjectError mbyes", "string:\r\n 1 -2147221504 6"},
        {"Stop Return GoSub Len goto", "name:Stop name:Return name:GoSub name:Len 267"},
        {"_a", "_ name:a"},
        {"a<>b", "name:a 310 311 name:b"},
        {"\"a\"&hello", "string:a 14"},
        {"[ @ $ ! ? \\ # ; ,", "[ @ $ ! ? \\ # ; ,"},
    });
    EXPECT_EQ(tokens("\xe9").substr(0, 3), "233");
}

TEST(Scanner, FixedWordTables) {
    EXPECT_EQ(MacroSupport::GetTokensCount(), 78);
    for (int i = 0; i < MacroSupport::GetTokensCount(); ++i) {
        const MacroWord* word = FindMacroWord(MacroSupport::s_Tokens[i].text);
        ASSERT_NE(word, nullptr) << MacroSupport::s_Tokens[i].text;
        EXPECT_EQ(word->token, MacroSupport::s_Tokens[i].token);
    }
    EXPECT_EQ(FindMacroWord("vbRed")->integer, 255);
    EXPECT_EQ(FindMacroWord("VBSATURDAY")->integer, 7);
    EXPECT_EQ(FindMacroWord("mcComboBoxDropdownList")->integer, 3);
    EXPECT_EQ(FindMacroWord("vbdirseparator")->text, "\\");
    EXPECT_EQ(FindMacroWord("vbColorRed"), nullptr);
    EXPECT_EQ(FindMacroWord(""), nullptr);
}

TEST(Scanner, CommentsCountLines) {
    struct Case {
        const char* text;
        const char* tokens;
        int line; // counted at the end
        const char* comment;
    };
    const Case cases[] = {
        {"'a\nx", "NL name:x", 1, "a\n"},
        {"rem a\nx", "NL name:x", 2, "em a\n"},
        {"x 'c", "name:x", 1, "c"},
        {"x REM c", "name:x NL", 1, "EM c"},
        {"'", "", 1, ""},
        {"x\r\ny\rz\n", "name:x NL name:y name:z NL", 2, ""},
        {"x.rem y\nz", "name:x rdot NL name:z", 2, "em y\n"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(tokens(c.text), c.tokens) << c.text;
        Scan scan(c.text);
        while (scan.Next() > 0) {
        }
        EXPECT_EQ(scan.scanner.GetCurrentLine(), c.line) << c.text;
        EXPECT_STREQ(scan.scanner.GetCommentText().c_str(), c.comment) << c.text;
        EXPECT_EQ(scan.cursor, scan.text.c_str() + scan.text.size()) << c.text;
    }
}

TEST(Scanner, FailingLineIsThePhysicalOne) {
    Scan scan("rem one\nrem two\n  a = 1\r\nlast");
    for (int i = 0; i < 3; ++i)
        scan.Next();
    EXPECT_EQ(scan.scanner.GetTokenLine(), 4);
    EXPECT_STREQ(scan.scanner.GetFailingLine(false).c_str(), "  a = 1");
    while (scan.Next() > 0) {
    }
    EXPECT_STREQ(scan.scanner.GetFailingLine(false).c_str(), "last");
}

TEST(Scanner, FailingLineOfATextOfOneLineHoldsItsEnd) {
    Scan scan("While 1\n");
    while (scan.Next() > 0) {
    }
    EXPECT_STREQ(scan.scanner.GetFailingLine(true).c_str(), "While 1");
    EXPECT_STREQ(scan.scanner.GetFailingLine(false).c_str(), "");
}

TEST(Scanner, EqualTextsShareOneBuffer) {
    Scan scan("alpha 1 alpha Alpha \"alpha\"");
    scan.Next();
    const DictionaryEntry* first = scan.scanner.GetValue().entry;
    scan.Next();
    scan.Next();
    EXPECT_EQ(scan.scanner.GetValue().entry, first);
    scan.Next();
    EXPECT_NE(scan.scanner.GetValue().entry, first);
    EXPECT_EQ(scan.scanner.GetValue().entry->Name(), first->Name());
    scan.Next();
    EXPECT_EQ(scan.scanner.GetValue().entry, first);
}

TEST(Scanner, NamesSurviveGrowth) {
    const MacroName* first = MacroName::Intern("growth_0");
    for (int i = 0; i < 5000; ++i)
        MacroName::Intern("growth_" + std::to_string(i));
    EXPECT_EQ(MacroName::Intern("GROWTH_0"), first);
    EXPECT_EQ(first->length, 8u);

    MacroDictionary dictionary;
    DictionaryEntry* entry = &dictionary.FindOrInsert("t0");
    for (int i = 0; i < 5000; ++i)
        dictionary.FindOrInsert("t" + std::to_string(i));
    EXPECT_EQ(dictionary.GetCount(), 5000u);
    EXPECT_EQ(&dictionary.FindOrInsert("t0"), entry);
}

} // namespace
