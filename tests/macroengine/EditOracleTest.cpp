// Edits of a macro's text: after each one the tree must look as if the text had been parsed afresh.

#include "DebugFixture.h"
#include "EditedSource.h"

#include "interpreter/TreeDump.h"

#include <random>

namespace {

/// The tree, and which kinds of nodes stand on which line.
std::string describe(MacroParser& parser) {
    std::string text;
    DumpTree(parser.GetTree(), text);
    for (const auto& entry : parser.GetTree().GetUnits()) {
        text += "explicit " + std::to_string(entry.value->m_Explicit) + "\n";
        long line = 0;
        for (const ParserTree::Position* position : entry.value->m_Lines) {
            if (position && position->firstNode) {
                text += std::to_string(line) + ":";
                EXPECT_EQ(position->line, line);
                for (auto* node = position->firstNode; node; node = node->GetNextOnLine())
                    text += " " + std::to_string(static_cast<int>(node->GetKind()));
                text += "\n";
            }
            ++line;
        }
    }
    std::set<std::string> names;
    for (const auto& entry : parser.GetProcedures()) {
        const std::string name(entry.value.GetName().View());
        names.insert(name);
        for (const auto& local : entry.value.GetDeclaration()->locals)
            names.insert(name + "." + std::string(local.key.View()) +
                         (local.value.isConstant ? "!" : ""));
    }
    for (const auto& entry : parser.GetTree().m_GlobalNames)
        names.insert("global " + std::string(entry.key.View()));
    for (const std::string& name : names)
        text += name + "\n";
    return text;
}

class EditOracleTest : public DebugTest {
protected:
    MacroParser& parser() { return static_cast<MacroParser&>(processor()); }

    /// What a fresh parse makes of the text, or its error.
    static std::string fresh(const EditedSource& edited, Feed feed, std::string& error) {
        UI_Macro other(true);
        other.OpenMacroFile("");
        auto& parser = static_cast<MacroParser&>(processor());
        const SCL_Pointer<EditedSource> source = new EditedSource(edited.lines, feed);
        parser.SetSource(source);
        error = errorOf([&] {
            if (!parser.Parse())
                throw MacroException(SYS_String("a block is open"), SYS_String(), 0, nullptr);
        });
        return error == "no error" ? describe(parser) : "";
    }
    std::string reparse(EditedSource& source) {
        const Changes changes = std::exchange(source.changes, {});
        return errorOf([&] {
            if (!parser().Reparse(changes))
                throw MacroException(SYS_String("a block is open"), SYS_String(), 0, nullptr);
        });
    }
};

/// Statements and whole blocks of every kind, and pieces that are none.
const char* const kStatements[] = {
    "x = x + 1",
    "y = f(x, 2) * 3",
    "Log.Add x, y",
    "Log.Add(x)",
    "Call s(1)",
    "s 2",
    "Set o = Log",
    "a(1) = \"text\" & 'no end",
    "Print #1, x; Tab(3); \"t\"",
    "Input #1, x, a(2)",
    "Open \"f\" For Input As #1",
    "Close #1",
    "Width #1, 20",
    "Randomize 3",
    "Erase a",
    "ReDim a(x)",
    "' a comment",
    "",
    "x = 1 : y = 2 ' both",
    "If x Then y = 1",
    "If x Then y = 1 Else y = 2",
    "For k = 1 To 2 : y = k : Next",
    "Do While x : x = 0 : Loop",
    "Exit For",
    "Exit Do",
    "Exit Sub",
    "Exit Function",
    "Dim fresh1",
    "Dim fresh2(3), fresh3",
    "Const fresh4 = 4",
    "Option Explicit",
};
const char* const kPieces[] = {
    "If x > 1 Then",   "ElseIf x Then",  "Else",
    "End If",          "For i = 1 To x", "Next",
    "For Each e In a", "Next i",         "Do",
    "Do Until x",      "Loop",           "Loop While x",
    "While x",         "Wend",           "Select Case x",
    "Case 1, 2",       "Case Else",      "End Select",
    "With Log",        "End With",       "Sub t(p)",
    "End Sub",         "Function g(p)",  "End Function",
    "x = = 1",         "Exit",           ")",
    "x = \"open",
};
const struct {
    const char* first;
    const char* last;
} kBlocks[] = {{"If x Then", "End If"},
               {"For j = 1 To 3", "Next"},
               {"For Each j In a", "Next"},
               {"Do", "Loop Until y"},
               {"While y", "Wend"},
               {"With Log", "End With"},
               {"Select Case y\nCase 1", "End Select"}};

constexpr const char* kText = "' head\n"
                              "Dim x, a(5)\n"
                              "Const c = 3\n"
                              "For i = 1 To 3\n"
                              "  If i = 2 Then\n"
                              "    x = i\n"
                              "  ElseIf i = 3 Then\n"
                              "    x = -i\n"
                              "  Else\n"
                              "    For n = 1 To 2\n"
                              "      Log.Add n\n"
                              "    Next\n"
                              "  End If\n"
                              "Next\n"
                              "Do\n"
                              "  x = x + 1\n"
                              "  While x < 3\n"
                              "    x = x + 1\n"
                              "  Wend\n"
                              "Loop While x < 5\n"
                              "With Log\n"
                              "  .Add 1\n"
                              "  Select Case x\n"
                              "  Case 1, 2\n"
                              "    .Add 2\n"
                              "    .Add 3\n"
                              "  Case Else\n"
                              "    .Add 4\n"
                              "  End Select\n"
                              "End With\n"
                              "' what f does\n"
                              "Function f(p, q)\n"
                              "  Dim l, m(2)\n"
                              "  Const lc = 2\n"
                              "  If p Then\n"
                              "    f = q\n"
                              "  End If\n"
                              "  f = f(p - 1, l)\n"
                              "End Function\n"
                              "\n"
                              "Sub s(p)\n"
                              "  For z = 1 To p\n"
                              "    With Log\n"
                              "      .Add z\n"
                              "    End With\n"
                              "  Next\n"
                              "End Sub\n"
                              "x = 9\n";

/// Makes one random edit: mostly of single lines, at times of a block or of several places.
class Editor {
public:
    explicit Editor(unsigned seed) : m_Random(seed) {}

    void Edit(EditedSource& source) {
        const int count = static_cast<int>(source.lines.size());
        switch (count < 3 ? 0 : below(12)) {
        case 0:
        case 1:
        case 2:
            source.Insert(below(count + 1), statement());
            break;
        case 3:
        case 4:
            source.Remove(below(count));
            break;
        case 5:
        case 6:
            source.Change(below(count), statement());
            break;
        case 7:
            source.Change(below(count), piece());
            break;
        case 8:
            source.Insert(below(count + 1), piece());
            break;
        case 9: // a block around lines that are there
            wrap(source);
            break;
        case 10: { // a line moves
            const int from = below(count);
            const std::string text = source.lines[static_cast<std::size_t>(from)];
            source.Remove(from);
            source.Insert(below(count), text);
            break;
        }
        default: // an unchanged line that is said to have changed
            source.Change(below(count), source.lines[static_cast<std::size_t>(below(count))]);
            break;
        }
    }
    int below(int bound) { return static_cast<int>(m_Random() % static_cast<unsigned>(bound)); }

private:
    std::string statement() { return kStatements[below(static_cast<int>(std::size(kStatements)))]; }
    std::string piece() { return kPieces[below(static_cast<int>(std::size(kPieces)))]; }
    void wrap(EditedSource& source) {
        const auto& block = kBlocks[below(static_cast<int>(std::size(kBlocks)))];
        int at = below(static_cast<int>(source.lines.size()));
        for (const std::string& line : splitLines(block.first))
            source.Insert(at++, line);
        at += below(std::min(5, static_cast<int>(source.lines.size()) - at + 1));
        source.Insert(at, block.last);
    }

    std::mt19937 m_Random;
};

} // namespace

// Each sequence of edits begins with the same text. An edit that makes the text faulty is refused
// with the error of the text, and mended by the next one; both must leave a tree to go on with.
TEST_F(EditOracleTest, AnEditedTreeIsTheTreeOfTheEditedText) {
    int sound = 0;
    int faulty = 0;
    for (const Feed feed : {Feed::Whole, Feed::LineByLine}) {
        for (unsigned seed = 1; seed <= 60; ++seed) {
            SCL_Pointer<EditedSource> source = new EditedSource(splitLines(kText), feed);
            parser().SetSource(source);
            ASSERT_TRUE(parser().Parse());
            Editor editor(seed);
            for (int step = 0; step < 12; ++step) {
                const Lines before = source->lines;
                do
                    editor.Edit(*source);
                while (editor.below(3) == 0);
                SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(step) +
                             "\n" + source->whole());
                std::string error;
                const std::string expected = fresh(*source, feed, error);
                const std::string told = reparse(*source);
                ASSERT_EQ(told, error);
                if (error == "a block is open") {
                    ASSERT_EQ(processor().GetExecutionMode(), Processor::emStopped);
                    source = new EditedSource(before, feed);
                    parser().SetSource(source);
                    ASSERT_TRUE(parser().Parse());
                    continue;
                }
                if (error == "no error") {
                    ++sound;
                    ASSERT_EQ(describe(parser()), expected);
                    continue;
                }
                ++faulty;
                ASSERT_EQ(processor().GetExecutionMode(), Processor::emPaused);
                // Undone line by line, as an editor would.
                while (!source->lines.empty() && source->lines.size() > before.size())
                    source->Remove(static_cast<int>(source->lines.size()) - 1);
                for (std::size_t i = 0; i < before.size(); ++i) {
                    if (i >= source->lines.size())
                        source->Insert(static_cast<int>(i), before[i]);
                    else if (source->lines[i] != before[i])
                        source->Change(static_cast<int>(i), before[i]);
                }
                const std::string mended = fresh(*source, feed, error);
                ASSERT_EQ(reparse(*source), "no error");
                ASSERT_EQ(describe(parser()), mended);
            }
        }
    }
    EXPECT_GT(sound, 500);
    EXPECT_GT(faulty, 100);
}
