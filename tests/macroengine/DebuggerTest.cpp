// What a debugger may do in the callbacks of a run: stop it, look, evaluate, edit, let go.

#include "DebugFixture.h"
#include "EditedSource.h"

#include "objects/Library.h"

namespace {

constexpr const char* kText = "a = 1\n"           // 0
                              "Log.Add a\n"       // 1
                              "work a\n"          // 2
                              "Log.Add \"end\"\n" // 3
                              "Sub work(n)\n"     // 4
                              "  With Log\n"      // 5
                              "    .Add n + 1\n"  // 6
                              "    .Add 1 \\ 0\n" // 7
                              "  End With\n"      // 8
                              "End Sub\n";        // 9

/// A source whose callbacks the test fills in.
class CallbackSource : public EditedSource {
public:
    explicit CallbackSource(std::string_view text, Feed feed = Feed::Whole)
        : EditedSource(splitLines(text), feed), m_Feed(feed) {}

    bool IsBreakPoint(long line) override { return onStatement && onStatement(line); }
    void OnPause() override {
        if (onPause)
            onPause();
        else
            EditedSource::OnPause();
    }
    bool BreakOnError(MacroException& error) override { return onError && onError(error); }
    int GetNextLine(SYS_String& line, bool forParsing) override {
        if (onRead)
            onRead();
        return EditedSource::GetNextLine(line, forParsing);
    }

    MacroSource* Clone(char const*) override {
        auto* other = new CallbackSource("If 1 Then\nLog.Add 8\nEnd If\n", m_Feed);
        other->onRead = onRead;
        return other;
    }

    std::function<bool(long)> onStatement;
    std::function<void()> onPause;
    std::function<bool(MacroException&)> onError;
    std::function<void()> onRead;

private:
    const Feed m_Feed;
};

class DebuggerTest : public DebugTest {
protected:
    MacroParser& parser() { return static_cast<MacroParser&>(processor()); }
    std::string eval(std::string_view text, bool sideEffects = true) {
        try {
            return textOf(macro.Eval(textSource(text), sideEffects));
        } catch (const MacroException& error) {
            return std::string(error.GetText().View());
        }
    }
    Lines run(const SCL_Pointer<CallbackSource>& source) {
        log.lines.clear();
        std::string error = errorOf([&] { execute(source); });
        Lines output = log.lines;
        if (error != "no error")
            output.push_back(error.substr(0, error.find('\n')));
        return output;
    }
    static void pause() { processor().SetExecutionMode(Processor::emPaused); }
    static void goOn() { processor().SetExecutionMode(Processor::emRun); }
};

} // namespace

TEST_F(DebuggerTest, StopEndsTheRunFromEveryCallback) {
    using Source = CallbackSource;
    const struct {
        const char* name;
        std::function<void(Source&)> prepare;
    } cases[] = {
        {"asked for a breakpoint",
         [this](Source& s) {
             s.onStatement = [this](long line) {
                 if (line == 6)
                     macro.Stop();
                 return line == 6;
             };
         }},
        {"asked, and lets it go on",
         [this](Source& s) {
             s.onStatement = [this](long line) {
                 if (line == 6)
                     macro.Stop();
                 return false;
             };
         }},
        {"paused",
         [this](Source& s) {
             s.onStatement = [](long line) {
                 if (line == 6)
                     pause();
                 return false;
             };
             s.onPause = [this] {
                 macro.Stop();
                 goOn(); // too late
             };
         }},
        {"told an error",
         [this](Source& s) {
             s.onError = [this](MacroException&) {
                 macro.Stop();
                 return true;
             };
         }},
        {"asked again after an error",
         [this](Source& s) {
             s.onError = [this, &s](MacroException&) {
                 s.onStatement = [this](long) {
                     macro.Stop();
                     return true;
                 };
                 return true;
             };
         }},
        {"idle",
         [this](Source& s) {
             s.onStatement = [](long line) {
                 if (line == 6)
                     pause();
                 return false;
             };
             s.onPause = [] {};
             setHooks({}, [this] { macro.Stop(); });
         }},
        {"before a statement",
         [this](Source&) {
             setHooks([this](long line) {
                 if (line == 6)
                     macro.Stop();
             });
         }},
        {"reading the text of an edit",
         [this](Source& s) {
             s.onStatement = [this, &s](long line) {
                 if (line != 6)
                     return false;
                 s.onRead = [this] { macro.Stop(); };
                 s.Change(6, ".Add 5");
                 EXPECT_FALSE(parser().Reparse(s.changes));
                 return false;
             };
         }},
        {"evaluating",
         [this](Source& s) {
             s.onStatement = [this](long line) {
                 if (line == 6) {
                     log.On("Stop", [this] { macro.Stop(); });
                     eval("Log.Stop");
                 }
                 return false;
             };
         }},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        setHooks({}, {});
        const SCL_Pointer<CallbackSource> source = new CallbackSource(kText);
        row.prepare(*source);
        Lines output = run(source);
        const bool pastError = output == Lines{"1", "2"};
        EXPECT_TRUE(pastError || output == Lines{"1"}) << testing::PrintToString(output);
        EXPECT_EQ(processor().GetExecutionMode(), Processor::emStopped);
        EXPECT_EQ(macro.GetFramesCount(), 0);
        EXPECT_EQ(processor().GetSource(), nullptr);
    }
    setHooks({}, {});
    EXPECT_EQ(runText("Log.Add 3"), (Lines{"3"})); // the engine is as good as new
}

TEST_F(DebuggerTest, AStopWhileATextIsReadEndsTheRunWithoutAnError) {
    const TestFolder folder;
    const std::string text = "If 1 Then\nLog.Add 1\nEnd If\nWScript.Execute \"" +
                             folder.Write("other.mcr", "") + "\"\nLog.Add 9\n";
    for (const Feed feed : {Feed::Whole, Feed::LineByLine}) {
        bool isStopped = true;
        for (int stopAt = 1; isStopped; ++stopAt) {
            SCOPED_TRACE(stopAt);
            const SCL_Pointer<CallbackSource> source = new CallbackSource(text, feed);
            int reads = 0;
            source->onRead = [&] {
                if (++reads == stopAt)
                    macro.Stop();
            };
            const Lines output = run(source);
            isStopped = reads >= stopAt;
            if (isStopped) {
                EXPECT_TRUE(output.empty() || output == Lines{"1"});
                EXPECT_EQ(processor().GetExecutionMode(), Processor::emStopped);
                EXPECT_EQ(processor().GetLastErrorCode(), errMessage);
            } else {
                EXPECT_EQ(output, (Lines{"1", "8", "9"}));
            }
        }
    }
}

TEST_F(DebuggerTest, AnErrorIsLookedAtBeforeAnythingIsUnwound) {
    const SCL_Pointer<CallbackSource> source = new CallbackSource(kText);
    std::string seen;
    source->onError = [&](MacroException& error) {
        seen = std::to_string(error.GetPosition()) + " in " + macro.GetContext(0).c_str();
        for (int i = 0; i < macro.GetFramesCount(); ++i)
            seen += " " + std::to_string(macro.GetPosition(i));
        seen += " n=" + eval("n") + " a=" + eval("a + 1") + " " + eval("1 \\ 0");
        EXPECT_TRUE(macro.SetVariable(0, "n", 8));
        return false;
    };
    EXPECT_EQ(run(source), (Lines{"1", "2", "Error: Unknown error: "}));
    EXPECT_EQ(seen, "7 in work 7 2 n=1 a=2 Error: Unknown error: ");
    // What a look raised or cleared is not what ended the run.
    EXPECT_EQ(processor().GetLastErrorCode(), errRuntime);
    EXPECT_EQ(processor().GetLastErrorLine(), 7);
    source->onError = [&](MacroException&) { return eval("1 + 1") != "2"; };
    run(source);
    EXPECT_EQ(processor().GetLastErrorCode(), errRuntime);
}

TEST_F(DebuggerTest, EvaluationsWorkInEveryCallback) {
    const SCL_Pointer<CallbackSource> source =
        new CallbackSource("a = 2\nLog.Add twice(a)\nFunction twice(n)\n  twice = n * 2\n"
                           "End Function\n",
                           Feed::LineByLine);
    Lines seen;
    source->onRead = [&] {
        if (seen.empty())
            seen.push_back(eval("1 + 1")); // in the middle of a parse
    };
    source->onStatement = [&](long line) {
        if (line == 3)
            seen.push_back(eval("twice(n) + a"));
        return false;
    };
    bool hooked = false;
    setHooks([&](long line) {
        if (line == 1 && !std::exchange(hooked, true))
            seen.push_back(eval("a = a + 1 : Log.Add a"));
    });
    EXPECT_EQ(run(source), (Lines{"3", "6"}));
    EXPECT_EQ(seen, (Lines{"2", "", "9"}));
}

TEST_F(DebuggerTest, AnEditWhileAskedForABreakpointTakesEffectAtOnce) {
    for (const bool stops : {false, true}) {
        const SCL_Pointer<CallbackSource> source =
            new CallbackSource("Log.Add 1\nLog.Add 2\nLog.Add 3\n");
        bool edited = false;
        source->onStatement = [&](long line) {
            if (line != 1 || std::exchange(edited, true))
                return false;
            source->Change(1, "Log.Add 20 : Log.Add 21");
            source->Insert(0, "' new");
            EXPECT_TRUE(parser().Reparse(source->changes));
            return stops;
        };
        EXPECT_EQ(run(source), (Lines{"1", "20", "21", "3"}));
    }
}

TEST_F(DebuggerTest, AnEditWhileTheRunIdles) {
    const SCL_Pointer<CallbackSource> source = new CallbackSource("a = 1\nLog.Add a\n");
    source->onPause = [] {};
    source->onStatement = [&](long line) {
        if (line == 1 && source->changes.empty())
            pause();
        return false;
    };
    int turns = 0;
    setHooks({}, [&] {
        if (++turns == 2) {
            source->Change(1, "Log.Add (");
            EXPECT_NE(errorOf([&] { parser().Reparse(source->changes); }), "no error");
        } else if (turns == 4) {
            source->Change(1, "Log.Add -a");
            EXPECT_TRUE(parser().Reparse(source->changes));
        } else if (turns == 6) {
            goOn();
        }
    });
    EXPECT_EQ(run(source), (Lines{"-1"}));
    EXPECT_EQ(turns, 6);
}

TEST_F(DebuggerTest, ASourceLivesAsLongAsTheRunNeedsIt) {
    SCL_Pointer<CallbackSource> source = new CallbackSource(kText);
    CallbackSource* const raw = source;
    int pauses = 0;
    raw->onStatement = [](long line) {
        if (line == 6)
            pause();
        return false;
    };
    raw->onPause = [&] {
        if (++pauses == 1) {
            source = nullptr; // the host lets go of it
            EXPECT_EQ(eval("n"), "1");
            raw->onStatement = nullptr;
        }
        goOn();
    };
    log.lines.clear();
    EXPECT_EQ(errorOf([&] { execute(raw); }), "Error: Unknown error: ");
    EXPECT_EQ(log.lines, (Lines{"1", "2"}));
    EXPECT_EQ(pauses, 1);
}

TEST_F(DebuggerTest, NestedProcessorsShowTheVariablesOfAllTheirFrames) {
    log.On("Inner", [&] {
        UI_Macro inner(true);
        inner.Register(log, "Log");
        const SCL_Pointer<CallbackSource> source =
            new CallbackSource("m = 5\nshow 7\nSub show(k)\n  Log.Add k & m\nEnd Sub\n");
        source->onStatement = [&](long line) {
            if (line == 3) {
                std::string text;
                for (int i = 0; i < inner.GetFramesCount(); ++i) {
                    text += std::string(inner.GetContext(i).View()) + " " +
                            std::to_string(inner.GetPosition(i)) + ":";
                    for (const MacroVariableInfo& info : inner.GetVariables(i))
                        text += " " + std::string(info.name.View()) +
                                std::string(info.description.View());
                    text += "\n";
                }
                EXPECT_EQ(text, "show 3: k[number: 7]\n"
                                "Macro global code 1: m[number: 5]\n"
                                "work 6: n[number: 1]\n"
                                "Macro global code 2: a[number: 1]\n");
                UI_MacroVariant value;
                EXPECT_TRUE(inner.GetVariable(0, "m", value));
                EXPECT_FALSE(inner.GetVariable(0, "a", value));
                EXPECT_TRUE(inner.GetVariable(2, "a", value));
                EXPECT_TRUE(inner.SetVariable(2, "n", 9));
                EXPECT_TRUE(inner.SetVariable(1, "m", 6));
                EXPECT_FALSE(inner.SetVariable(4, "m", 6));
                EXPECT_EQ(eval("k + m"), "13");
                EXPECT_EQ(eval("a"), "Variable is undefined : 'a'");
            }
            return false;
        };
        inner.Execute(source, "", nullptr, 0);
    });
    const SCL_Pointer<CallbackSource> source = new CallbackSource(
        "a = 1\nx = 1\nwork a\nLog.Add \"end\"\nSub work(ByVal n)\n  b = 1\n  Log.Inner\n"
        "  Log.Add n\nEnd Sub\n");
    source->Change(1, "' nothing");
    source->Change(5, "' nothing");
    source->changes.clear();
    EXPECT_EQ(run(source), (Lines{"76", "9", "end"}));
}

TEST_F(DebuggerTest, AnEditUnderANestedMacroConcernsTheInnerOne) {
    const SCL_Pointer<CallbackSource> outer = new CallbackSource("Log.Inner\nLog.Add \"outer\"\n");
    log.On("Inner", [&] {
        UI_Macro inner(true);
        inner.Register(log, "Log");
        const SCL_Pointer<CallbackSource> source = new CallbackSource("Log.Add 1\nLog.Add 2\n");
        source->onStatement = [&](long line) {
            if (line == 1 && source->changes.empty()) {
                source->Change(1, "Log.Add 3");
                EXPECT_TRUE(parser().Reparse(source->changes));
            }
            return false;
        };
        inner.Execute(source, "", nullptr, 0);
    });
    EXPECT_EQ(run(outer), (Lines{"1", "3", "outer"}));
}
