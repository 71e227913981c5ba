// Edits of a paused macro: where the run goes on, and what ends it.

#include "DebugFixture.h"
#include "EditedSource.h"

namespace {

constexpr const char* kText = "Log.Add \"a\"\n"         // 0
                              "x = 1\n"                 // 1
                              "For i = 1 To 2\n"        // 2
                              "  Log.Add i\n"           // 3
                              "Next\n"                  // 4
                              "If x Then\n"             // 5
                              "  work x\n"              // 6
                              "End If\n"                // 7
                              "Log.Add \"end\"\n"       // 8
                              "Sub work(n)\n"           // 9
                              "  Dim l\n"               // 10
                              "  l = n\n"               // 11
                              "  With Log\n"            // 12
                              "    .Add l\n"            // 13
                              "    .Add \"w\"\n"        // 14
                              "  End With\n"            // 15
                              "  Log.Add \"out\" & l\n" // 16
                              "End Sub\n"               // 17
                              "Sub other\n"             // 18
                              "End Sub\n";              // 19

/// Pauses once at a line, where the test does something, and then runs on.
class PausedSource : public EditedSource {
public:
    PausedSource(std::string_view text, Feed feed, long line)
        : EditedSource(splitLines(text), feed), m_Line(line) {}

    bool IsBreakPoint(long line) override {
        if (line != m_Line || std::exchange(m_Done, true))
            return false;
        Processor::GetProcessor()->SetExecutionMode(Processor::emPaused);
        return true;
    }
    void OnPause() override {
        ++pauses;
        action();
        if (Processor::GetProcessor()->GetExecutionMode() == Processor::emPaused)
            Processor::GetProcessor()->SetExecutionMode(Processor::emRun);
    }
    bool BreakOnError(MacroException& error) override { return onError && onError(error); }

    std::function<void()> action;
    std::function<bool(MacroException&)> onError;
    int pauses = 0;

private:
    const long m_Line;
    bool m_Done = false;
};

class ReparseTest : public DebugTest {
protected:
    MacroParser& parser() { return static_cast<MacroParser&>(processor()); }
    bool reparse(EditedSource& source) {
        const Changes changes = std::exchange(source.changes, {});
        return parser().Reparse(changes);
    }
    Lines runPaused(const SCL_Pointer<PausedSource>& source, std::function<void()> action) {
        source->action = std::move(action);
        log.lines.clear();
        Lines output;
        try {
            execute(source);
            output = log.lines;
        } catch (const MacroException& error) {
            output = log.lines;
            output.push_back(std::string(error.GetText().View()));
        }
        EXPECT_EQ(source->pauses, 1);
        return output;
    }
};

} // namespace

TEST_F(ReparseTest, TheRunGoesOnWithTheEditedText) {
    using Edit = std::function<void(EditedSource&)>;
    const struct {
        const char* name;
        long pause;
        Edit edit;
        bool goesOn;
        Lines output;
    } cases[] = {
        {"the current line",
         11,
         [](auto& s) { s.Change(11, "l = n + 9"); },
         true,
         {"a", "1", "2", "10", "w", "out10", "end"}},
        {"a line above",
         11,
         [](auto& s) { s.Insert(0, "' more"); },
         true,
         {"a", "1", "2", "1", "w", "out1", "end"}},
        {"a line of the procedure",
         11,
         [](auto& s) { s.Change(16, "Log.Add l + 1"); },
         true,
         {"a", "1", "2", "1", "w", "2", "end"}},
        {"its header", 11, [](auto& s) { s.Change(9, "Sub work(m)"); }, false, {"a", "1", "2"}},
        {"its header, unchanged",
         11,
         [](auto& s) { s.Change(9, "Sub work(n)"); },
         false,
         {"a", "1", "2"}},
        {"its end", 11, [](auto& s) { s.Remove(17); }, false, {"a", "1", "2"}},
        {"the calling line", 11, [](auto& s) { s.Change(6, "work 5"); }, false, {"a", "1", "2"}},
        {"the block of the call",
         11,
         [](auto& s) { s.Change(5, "If x = 1 Then"); },
         false,
         {"a", "1", "2"}},
        {"another procedure",
         11,
         [](auto& s) { s.Change(18, "Sub fresh"); },
         true,
         {"a", "1", "2", "1", "w", "out1", "end"}},
        {"the loop that has run",
         11,
         [](auto& s) { s.Change(2, "For i = 1 To 9"); },
         true,
         {"a", "1", "2", "1", "w", "out1", "end"}},
        {"the head of a running loop",
         3,
         [](auto& s) { s.Change(2, "For i = 1 To 9"); },
         false,
         {"a"}},
        {"the end of a running loop", 3, [](auto& s) { s.Change(4, "Next i"); }, false, {"a"}},
        {"a running loop",
         3,
         [](auto& s) { s.Insert(4, "Log.Add -i"); },
         true,
         {"a", "1", "-1", "2", "-2", "1", "w", "out1", "end"}},
        {"a loop that is to begin",
         2,
         [](auto& s) { s.Change(2, "For i = 4 To 5"); },
         true,
         {"a", "4", "5", "1", "w", "out1", "end"}},
        {"inside With",
         13,
         [](auto& s) { s.Change(13, ".Add 2 : .Add 3"); },
         true,
         {"a", "1", "2", "2", "3", "w", "out1", "end"}},
        {"the head of With",
         13,
         [](auto& s) { s.Change(12, "With Log ' so"); },
         false,
         {"a", "1", "2"}},
        {"the end of With", 13, [](auto& s) { s.Remove(15); }, false, {"a", "1", "2"}},
        {"all that is left inside With",
         14,
         [](auto& s) { s.Change(14, "' nothing"); },
         true,
         {"a", "1", "2", "1", "out1", "end"}},
        {"the condition around the current line",
         6,
         [](auto& s) { s.Change(5, "If 1 Then"); },
         true,
         {"a", "1", "2", "1", "w", "out1", "end"}},
        {"the current line is deleted",
         1,
         [](auto& s) { s.Remove(1); },
         true,
         {"a", "a", "1", "2", "end"}},
        {"the current line becomes a comment",
         1,
         [](auto& s) { s.Change(1, "' gone"); },
         true,
         {"a", "1", "2", "end"}},
        {"a line before it is deleted",
         8,
         [](auto& s) {
             s.Remove(3);
             s.Remove(0);
         },
         true,
         {"a", "1", "2", "1", "w", "out1", "end"}},
        {"a declaration in the running procedure",
         11,
         [](auto& s) {
             s.Insert(11, "Dim fresh");
             s.Change(17, "fresh = l : Log.Add fresh");
         },
         true,
         {"a", "1", "2", "1", "w", "1", "end"}},
        {"a module constant",
         1,
         [](auto& s) { s.Change(1, "Const x = 0"); },
         true,
         {"a", "1", "2", "end"}},
        {"a block around the current line",
         16,
         [](auto& s) {
             s.Insert(16, "For k = 1 To 2");
             s.Insert(18, "Next");
         },
         true,
         {"a", "1", "2", "1", "w", "out1", "out1", "end"}},
        {"an Else inside the running block",
         6,
         [](auto& s) {
             s.Insert(7, "Else");
             s.Insert(8, "Log.Add 0");
         },
         true,
         {"a", "1", "2", "1", "w", "out1", "end"}},
        {"an open loop",
         8,
         [](auto& s) { s.Insert(8, "For k = 1 To 2"); },
         false,
         {"a", "1", "2", "1", "w", "out1"}},
        {"lines that are not there",
         11,
         [](auto& s) {
             s.changes = {{1, 500}, {2, 2000000000}, {0, 2000000000}};
         },
         true,
         {"a", "1", "2", "1", "w", "out1", "end"}},
        {"nothing", 11, [](auto&) {}, true, {"a", "1", "2", "1", "w", "out1", "end"}},
    };
    for (const Feed feed : {Feed::Whole, Feed::LineByLine})
        for (const auto& row : cases) {
            SCOPED_TRACE(row.name);
            const AssertRecorder asserts;
            const SCL_Pointer<PausedSource> source = new PausedSource(kText, feed, row.pause);
            const Lines output = runPaused(source, [&] {
                row.edit(*source);
                EXPECT_EQ(reparse(*source), row.goesOn);
                EXPECT_EQ(processor().GetExecutionMode(),
                          row.goesOn ? Processor::emPaused : Processor::emStopped);
                if (row.goesOn) {
                    EXPECT_EQ(macro.GetPosition(0), processor().GetCurrentLine());
                    EXPECT_EQ(source->GetNextPosition(), processor().GetCurrentLine());
                }
            });
            EXPECT_EQ(output, row.output);
        }
}

TEST_F(ReparseTest, AFaultyEditLeavesTheMacroPausedUntilItIsMended) {
    for (const Feed feed : {Feed::Whole, Feed::LineByLine}) {
        const SCL_Pointer<PausedSource> source = new PausedSource(kText, feed, 11);
        const Lines output = runPaused(source, [&] {
            source->Change(11, "l = = n");
            EXPECT_EQ(errorOf([&] { reparse(*source); }),
                      "Syntax error: \nFile edited Line 12: l = = n");
            EXPECT_EQ(processor().GetExecutionMode(), Processor::emPaused);
            EXPECT_EQ(macro.GetFramesCount(), 2);
            EXPECT_EQ(source->GetNextPosition(), 11);
            EXPECT_EQ(textOf(macro.Eval(textSource("n + 1"), false)), "2");
            EXPECT_EQ(textOf(macro.Eval(textSource("other"), true)), "");
            EXPECT_EQ(errorOf([&] { parser().Reparse({}); }),
                      "Syntax error: \nFile edited Line 12: l = = n");
            source->Insert(12, "If l Then");
            source->Change(11, "l = n + 3");
            EXPECT_NE(errorOf([&] { reparse(*source); }), "no error");
            source->Insert(14, "End If");
            EXPECT_NE(errorOf([&] { reparse(*source); }), "no error");
            source->Remove(12);
            source->Remove(13);
            EXPECT_TRUE(reparse(*source));
            EXPECT_EQ(processor().GetCurrentLine(), 11);
        });
        EXPECT_EQ(output, (Lines{"a", "1", "2", "4", "w", "out4", "end"}));
    }
}

TEST_F(ReparseTest, AMacroMayGoOnPastAFaultyLine) {
    const SCL_Pointer<PausedSource> source = new PausedSource(kText, Feed::Whole, 11);
    const Lines output = runPaused(source, [&] {
        source->Change(11, "l = = n");
        EXPECT_NE(errorOf([&] { reparse(*source); }), "no error");
        EXPECT_EQ(processor().GetCurrentLine(), 12);
    });
    EXPECT_EQ(output, (Lines{"a", "1", "2", "", "w", "out", "end"}));
}

TEST_F(ReparseTest, DeclarationsFollowTheEdit) {
    const SCL_Pointer<PausedSource> source =
        new PausedSource("Const c = 1\nDim g\ng = 5\nwork\nLog.Add c & g & late\nSub work\n  Const "
                         "k = 1\n  Log.Add k\n"
                         "  work2\nEnd Sub\nSub work2\nLog.Add 0\nEnd Sub\n",
                         Feed::Whole, 8);
    const Lines output = runPaused(source, [&] {
        source->Change(0, "Const c = 2");
        source->Change(1, "Dim g, late");
        source->Change(6, "Const k = 2");
        EXPECT_TRUE(reparse(*source));
        EXPECT_EQ(textOf(macro.Eval(textSource("c & g & late & k"), false)), "151");
        source->Insert(0, "Option Explicit");
        EXPECT_TRUE(reparse(*source));
        EXPECT_EQ(processor().getOptions().explicitDeclarations, 1);
        source->Insert(0, "x = 1");
        EXPECT_EQ(errorOf([&] { reparse(*source); }).substr(0, 18), "Expected statement");
        source->Remove(0);
        EXPECT_TRUE(reparse(*source));
        source->Remove(0);
        EXPECT_TRUE(reparse(*source));
        EXPECT_EQ(processor().getOptions().explicitDeclarations, 0);
    });
    EXPECT_EQ(output, (Lines{"1", "0", "15"}));
}

TEST_F(ReparseTest, AStepInTheMiddleOfAStatementIsKept) {
    const SCL_Pointer<PausedSource> source = new PausedSource(
        "x = f(1) + f(2)\nLog.Add x\nFunction f(n)\n  Log.Add n\n  f = n\nEnd Function\n",
        Feed::Whole, 5);
    bool stepped = false;
    source->action = [&] {
        if (!std::exchange(stepped, true)) {
            processor().SetExecutionMode(Processor::emStepOut);
            return;
        }
        source->Insert(1, "' more");
        EXPECT_TRUE(reparse(*source));
    };
    log.lines.clear();
    execute(source);
    EXPECT_EQ(log.lines, (Lines{"1", "2", "3"}));
    EXPECT_TRUE(stepped);
}

TEST_F(ReparseTest, EditsWhileNothingRuns) {
    EXPECT_FALSE(parser().Reparse({{2, 0}})); // no source
    const SCL_Pointer<EditedSource> source =
        new EditedSource(splitLines("Log.Add 1\nSub s\nLog.Add 2\nEnd Sub\n"), Feed::Whole);
    parser().SetSource(source);
    EXPECT_FALSE(parser().Reparse({{2, 0}})); // no tree
    execute(source);
    EXPECT_TRUE(parser().Reparse({}));
    source->Change(0, "Log.Add 7");
    EXPECT_TRUE(reparse(*source));
    source->Change(2, "Log.Add (");
    EXPECT_NE(errorOf([&] { reparse(*source); }), "no error");
    source->Change(2, "Log.Add 8");
    EXPECT_TRUE(reparse(*source));
    log.lines.clear();
    processor().SetExecutionMode(Processor::emRun);
    EXPECT_EQ(processor().PlayBack(0, nullptr, nullptr), pbFinished);
    processor().Call("s", nullptr, 0);
    EXPECT_EQ(log.lines, (Lines{"7", "8"}));
    AssertRecorder asserts;
    EXPECT_TRUE(parser().Reparse({{3, 0}, {-1, 0}, {0, -1}}));
    EXPECT_EQ(asserts.Take().size(), 3u);
}

TEST_F(ReparseTest, AnEditUnderACallbackKeepsTheRunningLine) {
    for (const bool own : {false, true}) {
        const SCL_Pointer<PausedSource> source = new PausedSource(
            "For i = 1 To 2\nLog.Edit i\nLog.Add \"old\"\nNext\nLog.Add 9\n", Feed::Whole, -1);
        log.On("Edit", [&] {
            if (source->lines[2] != "Log.Add \"old\"")
                return;
            source->Change(2, "Log.Add \"new\"");
            if (own)
                source->Change(1, "Log.Edit 0");
            EXPECT_EQ(reparse(*source), !own);
        });
        log.lines.clear();
        execute(source);
        EXPECT_EQ(log.lines, own ? Lines{} : (Lines{"new", "new", "9"}));
    }
}

TEST_F(ReparseTest, AnEditThatStopsLeavesNothingOfNestedRuns) {
    // The host calls a procedure from a method; the inner pause edits the outer line.
    const SCL_Pointer<PausedSource> source = new PausedSource(
        "Log.Call\nLog.Add \"never\"\nSub s\n  With Log\n  .Add 1\n  End With\nEnd Sub\n",
        Feed::Whole, 4);
    log.On("Call", [&] { return processor().Call("s", nullptr, 0); });
    const Lines output = runPaused(source, [&] {
        source->Change(0, "Log.Call ' again");
        EXPECT_FALSE(reparse(*source));
        processor().SetExecutionMode(Processor::emRun); // cannot bring it back
    });
    EXPECT_EQ(output, Lines{});
}

TEST_F(ReparseTest, IsRefusedDuringAnEvaluation) {
    const SCL_Pointer<PausedSource> source = new PausedSource(kText, Feed::Whole, 11);
    log.On("Edit", [&] {
        source->Change(16, "Log.Add 0");
        return UI_MacroVariant(SYS_String(errorOf([&] { reparse(*source); })));
    });
    const Lines output = runPaused(source, [&] {
        EXPECT_EQ(textOf(macro.Eval(textSource("Log.Edit()"), true)), "Error: Illegal nesting: ");
    });
    EXPECT_EQ(output, (Lines{"a", "1", "2", "1", "w", "out1", "end"}));
}

TEST_F(ReparseTest, ARepairedStatementRunsAgain) {
    const SCL_Pointer<PausedSource> source =
        new PausedSource("x = 0\ny = 1 \\ x\nLog.Add y\n", Feed::Whole, -1);
    source->onError = [&](MacroException&) {
        source->Change(1, "y = 1 \\ 1");
        return reparse(*source);
    };
    log.lines.clear();
    execute(source);
    EXPECT_EQ(log.lines, (Lines{"1"}));
}

TEST_F(ReparseTest, OneOptionOfSeveralGoes) {
    const SCL_Pointer<EditedSource> source = new EditedSource(
        splitLines("Option Explicit\nDim x\nSub s\n  x = 1\nEnd Sub\n"), Feed::Whole);
    parser().SetSource(source);
    ASSERT_TRUE(parser().Parse());
    source->Insert(3, "Option Explicit");
    EXPECT_TRUE(reparse(*source));
    source->Insert(3, "x = 2");
    EXPECT_EQ(errorOf([&] { reparse(*source); }).substr(0, 18), "Expected statement");
    source->Remove(3);
    EXPECT_TRUE(reparse(*source));
    source->Remove(3);
    EXPECT_TRUE(reparse(*source));
    EXPECT_EQ(processor().getOptions().explicitDeclarations, 1);
    source->Remove(0);
    EXPECT_TRUE(reparse(*source));
    EXPECT_EQ(processor().getOptions().explicitDeclarations, 0);
}

TEST_F(ReparseTest, AnEditInsideAnEditIsRefused) {
    class CuriousSource : public EditedSource {
    public:
        using EditedSource::EditedSource;
        bool LineByLine() override {
            if (const auto action = std::exchange(onAsked, nullptr)) { // errors ask, too
                action();
                onAsked = action;
            }
            return EditedSource::LineByLine();
        }
        std::function<void()> onAsked;
    };
    const SCL_Pointer<CuriousSource> source =
        new CuriousSource(splitLines("x = 1\nLog.Add x\n"), Feed::Whole);
    parser().SetSource(source);
    ASSERT_TRUE(parser().Parse());
    int asked = 0;
    int refused = 0;
    source->onAsked = [&] {
        ++asked;
        refused += errorOf([&] { parser().Reparse({{2, 1}}); }) == "Error: Illegal nesting: ";
    };
    source->Change(0, "x = 2");
    EXPECT_TRUE(reparse(*source));
    EXPECT_GT(asked, 0);
    EXPECT_EQ(refused, asked);
    source->onAsked = nullptr;
    log.lines.clear();
    processor().SetExecutionMode(Processor::emRun);
    processor().PlayBack(0, nullptr, nullptr);
    EXPECT_EQ(log.lines, (Lines{"2"}));
}

TEST_F(ReparseTest, AFileIsReadAsItIsNow) {
    class FileUnderDebugger : public MacroSourceFile {
    public:
        FileUnderDebugger(const char* name, Feed feed) : MacroSourceFile(name), m_Feed(feed) {}
        bool LineByLine() override { return m_Feed == Feed::LineByLine; }
        bool IsBreakPoint(long line) override {
            if (line == 1)
                Processor::GetProcessor()->SetExecutionMode(Processor::emPaused);
            return line == 1 && !std::exchange(m_Asked, true);
        }
        void OnPause() override {
            MacroSourceFile::OnPause();
            onPause();
            Processor::GetProcessor()->SetExecutionMode(Processor::emRun);
        }
        std::function<void()> onPause;

    private:
        const Feed m_Feed;
        bool m_Asked = false;
    };
    for (const Feed feed : {Feed::Whole, Feed::LineByLine}) {
        const TestFolder folder;
        const std::string file = folder.Write("a.mcr", "Log.Add 1\nLog.Add 2\n");
        const SCL_Pointer<FileUnderDebugger> source = new FileUnderDebugger(file.c_str(), feed);
        int pauses = 0;
        source->onPause = [&] {
            if (++pauses > 1)
                return;
            std::filesystem::remove(file);
            EXPECT_NE(errorOf([&] { parser().Reparse({{2, 1}}); }), "no error");
            folder.Write("a.mcr", "' more\nLog.Add 1\nLog.Add 22\n");
            EXPECT_TRUE(parser().Reparse({{0, 0}, {2, 2}}));
        };
        log.lines.clear();
        execute(source);
        EXPECT_EQ(log.lines, (Lines{"1", "22"}));
    }
}

TEST_F(ReparseTest, ARemLineCountsTwiceInAWholeText) {
    const SCL_Pointer<EditedSource> source = new EditedSource(
        splitLines("rem one\nLog.Add 1\nx = \"rem \" : rem two\nLog.Add 2\nLog.Add 3\n"),
        Feed::Whole);
    parser().SetSource(source);
    ASSERT_TRUE(parser().Parse());
    source->lines[3] = "Log.Add 22";
    EXPECT_TRUE(parser().Reparse({{2, 5}}));
    source->lines.insert(source->lines.begin(), "Rem zero");
    EXPECT_TRUE(parser().Reparse({{0, 0}, {0, 1}}));
    source->lines[5] = "Log.Add 33";
    EXPECT_TRUE(parser().Reparse({{2, 8}}));
    log.lines.clear();
    processor().SetExecutionMode(Processor::emRun);
    processor().PlayBack(0, nullptr, nullptr);
    EXPECT_EQ(log.lines, (Lines{"1", "22", "33"}));
}
