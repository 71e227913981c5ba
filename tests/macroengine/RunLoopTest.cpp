// The run loop as a debugger sees it: pauses, steps, frames, repairs, hooks and limits.

#include "DebugFixture.h"

namespace {

class RunLoopTest : public DebugTest {};

using LineNumbers = std::vector<long>;
using Stops = std::vector<Debugger::Stop>;

constexpr const char* kProgram = "Log.Add \"start\"\n"   // 0
                                 "x = twice(2)\n"        // 1
                                 "Log.Add x\n"           // 2
                                 "For i = 1 To 2\n"      // 3
                                 "  note i\n"            // 4
                                 "Next\n"                // 5
                                 "Log.Add \"end\"\n"     // 6
                                 "Function twice(n)\n"   // 7
                                 "  y = n\n"             // 8
                                 "  twice = y + y\n"     // 9
                                 "End Function\n"        // 10
                                 "Sub note(n)\n"         // 11
                                 "  Log.Add \"n\" & n\n" // 12
                                 "End Sub\n";            // 13

const Lines kProgramOutput = {"start", "4", "n1", "n2", "end"};

constexpr const char* kRecursion = "Log.Add fact(3)\n"            // 0
                                   "Function fact(n)\n"           // 1
                                   "  If n < 2 Then\n"            // 2
                                   "    fact = 1\n"               // 3
                                   "  Else\n"                     // 4
                                   "    fact = n * fact(n - 1)\n" // 5
                                   "  End If\n"                   // 6
                                   "End Function\n";              // 7

} // namespace

// --- Statements and steps -----------------------------------------------------------------------

TEST_F(RunLoopTest, EveryStatementIsAskedForOnTheWayDown) {
    const LineNumbers all = {0, 1, 8, 9, 10, 2, 3, 4, 12, 13, 5, 4, 12, 13, 5, 6};
    for (const Feed feed : {Feed::Whole, Feed::LineByLine}) {
        LineNumbers hooked;
        setHooks([&](long line) { hooked.push_back(line); });
        const auto source = debug(kProgram, {}, {}, feed);
        EXPECT_EQ(runSource(source.Get()), kProgramOutput);
        EXPECT_EQ(source->asked, all);
        EXPECT_EQ(hooked, all);
        EXPECT_TRUE(source->stops.empty());
    }
}

/// A plan by letters: into, over, out of, run.
std::vector<Mode> planOf(std::string_view letters) {
    std::vector<Mode> plan;
    for (const char letter : letters)
        plan.push_back(letter == 'i'   ? Processor::emStepInto
                       : letter == 'o' ? Processor::emStepOver
                       : letter == 'u' ? Processor::emStepOut
                                       : Processor::emRun);
    return plan;
}

TEST_F(RunLoopTest, StepsStopWhereTheyShould) {
    struct Row {
        const char* name;
        const char* text;
        std::set<long> breakpoints;
        const char* plan; // then runs on
        LineNumbers stops;
    };
    const Row rows[] = {
        {"over module code", kProgram, {0}, "oooooooooooo", {0, 1, 2, 3, 4, 5, 4, 5, 6}},
        {"into stops at procedures", kProgram, {0}, "iiiiiiii", {0, 7, 11, 11}},
        {"over the end of a procedure", kProgram, {9}, "ooo", {9, 10, 1, 2}},
        {"over is ended by a breakpoint inside", kProgram, {1, 9}, "o", {1, 9}},
        {"out of a procedure", kProgram, {8}, "uuu", {8, 1, 2, 3}},
        {"out of a procedure in a loop", kProgram, {12}, "uru", {12, 4, 12, 4}},
        {"into, over and out", kProgram, {1}, "iou", {1, 7, 8, 1}},
        {"over a line with two statements", "a = 1\nb = 2 : c = 3\nd = 4", {0}, "oo", {0, 1, 2}},
        {"over a While loop",
         "i = 0\nWhile i < 2\n  i = i + 1\nWend\nx = 1",
         {0},
         "oooooooooo",
         {0, 1, 2, 1, 2, 1, 4}},
        {"over an If with branches",
         "a = 1\nIf a = 1 Then\n  x = 1\nElseIf a = 2 Then\n  x = 2\nElse\n  x = 3\nEnd If\ny = 1",
         {0},
         "oooooooooo",
         {0, 1, 2, 8}},
    };
    for (const Row& row : rows) {
        for (const Feed feed : {Feed::Whole, Feed::LineByLine}) {
            const auto source = debug(row.text, row.breakpoints, planOf(row.plan), feed);
            const Lines output = runSource(source.Get());
            EXPECT_EQ(source->getLines(), row.stops) << row.name;
            EXPECT_EQ(output, row.text == kProgram ? kProgramOutput : Lines{}) << row.name;
        }
    }
}

TEST_F(RunLoopTest, StepsFollowARecursion) {
    auto source = debug(kRecursion, {0}, planOf("iiiiiiiii"));
    EXPECT_EQ(runSource(source.Get()), Lines{"6"});
    EXPECT_EQ(source->stops, (Stops{{0, 1}, {1, 2}, {1, 3}, {1, 4}}));

    source = debug(kRecursion, {3}, planOf("uuuuuuuuu"));
    EXPECT_EQ(runSource(source.Get()), Lines{"6"});
    EXPECT_EQ(source->stops, (Stops{{3, 4}, {5, 3}, {5, 2}, {0, 1}}));
}

TEST_F(RunLoopTest, LinesOfTheSourceTellWhatRanAndWhatComes) {
    const auto source = debug("a = 1\nb = 2\n\nc = 3\n", {3});
    long passed = -1;
    long next = -1;
    source->onPause = [&] {
        passed = source->GetPosition();
        next = source->GetNextPosition();
    };
    runSource(source.Get());
    EXPECT_EQ(passed, 1);
    EXPECT_EQ(next, 3);
}

// --- Pausing -----------------------------------------------------------------------------------

TEST_F(RunLoopTest, VariablesMayBeReadAndChangedAtABreakpoint) {
    const auto source = debug("For i = 1 To 5\n"
                              "  Log.Add i\n"
                              "Next\n"
                              "show 1\n"
                              "Sub show(n)\n"
                              "  Log.Add n\n"
                              "End Sub\n",
                              {1, 5});
    Lines seen;
    source->onPause = [&] {
        const bool inSub = macro.GetFramesCount() == 2;
        UI_MacroVariant& value = variable(inSub ? "N" : "I");
        seen.push_back(textOf(value));
        if (inSub)
            value.Assign("changed");
        else if (textOf(value) == "2")
            value.Assign(4);
    };
    EXPECT_EQ(runSource(source.Get()), (Lines{"1", "4", "5", "changed"}));
    EXPECT_EQ(seen, (Lines{"1", "2", "5", "1"}));
}

TEST_F(RunLoopTest, AModeSetWhileAskingStopsTheLoop) {
    // The answer is no, yet the mode has changed: from here on it steps.
    class Quiet : public Debugger {
    public:
        using Debugger::Debugger;
        bool IsBreakPoint(long line) override {
            Debugger::IsBreakPoint(line);
            if (line == 1 && !changed) {
                changed = true;
                Processor::GetProcessor()->SetExecutionMode(Processor::emStepOver);
            }
            return false;
        }
        bool changed = false;
    };
    const SCL_Pointer<Quiet> source = new Quiet("a = 1\nb = 2\nc = 3\nd = 4");
    runSource(source.Get());
    EXPECT_EQ(source->getLines(), LineNumbers{2});
    EXPECT_EQ(source->asked, (LineNumbers{0, 1, 1, 2, 2, 3}));
}

TEST_F(RunLoopTest, APausedRunWaitsForTheIdleHook) {
    const auto source = debug(kProgram, {4});
    source->waits = true;
    int turns = 0;
    setHooks({}, [&] {
        EXPECT_EQ(processor().GetExecutionMode(), Processor::emPaused);
        EXPECT_EQ(processor().GetCurrentLine(), 4);
        if (++turns % 3 == 0)
            processor().SetExecutionMode(Processor::emRun);
    });
    EXPECT_EQ(runSource(source.Get()), kProgramOutput);
    EXPECT_EQ(turns, 6);
    EXPECT_EQ(source->getLines(), (LineNumbers{4, 4}));
}

TEST_F(RunLoopTest, WithoutADebuggerAPauseGoesOn) {
    const TestFolder folder;
    const std::string file = folder.Write("main.mcr", kProgram);
    bool done = false;
    const auto pauseAt = [&](long wanted, Mode mode) {
        done = false;
        setHooks([&done, wanted, mode](long line) {
            if (line == wanted && !std::exchange(done, true)) {
                processor().SetExecutionMode(mode);
                processor().SetExecutionMode(Processor::emPaused);
            }
        });
    };
    for (const Mode mode : {Processor::emRun, Processor::emStepOver, Processor::emStepInto}) {
        pauseAt(4, mode);
        EXPECT_EQ(runText(kProgram), kProgramOutput) << mode;
        EXPECT_EQ(processor().GetExecutionMode(), Processor::emFinished);
        pauseAt(4, mode);
        log.lines.clear();
        macro.ExecuteMacro(file.c_str(), "", nullptr, 0);
        EXPECT_EQ(log.lines, kProgramOutput) << mode;
    }
}

TEST_F(RunLoopTest, PausingTwiceTellsTheSourceOnce) {
    MacroParser own(false);
    const auto source = debug("x = 1", {});
    source->waits = true;
    own.SetExecutionMode(Processor::emPaused); // nobody to tell
    own.SetExecutionMode(Processor::emRun);
    own.SetSource(source);
    own.SetExecutionMode(Processor::emPaused);
    own.SetExecutionMode(Processor::emPaused);
    EXPECT_EQ(source->stops.size(), 1u);
    EXPECT_FALSE(own.IsExecuting());
    own.SetExecutionMode(Processor::emStepOut);
    EXPECT_TRUE(own.IsExecuting());
}

// --- The statement hook -------------------------------------------------------------------------

TEST_F(RunLoopTest, TheStatementHookEndsEndlessLoops) {
    const char* const loops[] = {
        "Do\n  x = x + 1\nLoop",
        "While True\nWend",
        "For i = 1 To 1 Step 0\nNext",
        "again 1\nSub again(n)\n  x = 1\n  again n\nEnd Sub",
    };
    for (const char* text : loops) {
        int count = 0;
        setHooks([&](long) {
            if (++count == 5000)
                macro.Stop();
        });
        EXPECT_EQ(runText(text), Lines{}) << text;
        EXPECT_EQ(count, 5000) << text;
        EXPECT_EQ(processor().GetExecutionMode(), Processor::emStopped) << text;

        count = 0;
        setHooks([&](long) {
            if (++count == 5000) {
                processor().SetExecutionMode(Processor::emStopped);
                throw MacroStopException();
            }
        });
        EXPECT_EQ(runText(text), Lines{}) << text;
        EXPECT_EQ(count, 5000) << text;
    }
    setHooks({});
    EXPECT_EQ(runText("Log.Add 1"), Lines{"1"});
}

// --- Errors ------------------------------------------------------------------------------------

TEST_F(RunLoopTest, AFailingStatementRunsAgainAfterARepair) {
    struct Row {
        const char* text;
        const char* repaired; // the variable that is given 4
        int frames;
        long line;
        Lines output;
    };
    const Row rows[] = {
        {"d = 0\nLog.Add 12 \\ d\nLog.Add \"end\"", "d", 1, 1, {"3", "end"}},
        {"Log.Add share(0) + 1\nFunction share(n)\n  Log.Add \"in\"\n  share = 12 \\ n\n"
         "End Function",
         "n",
         2,
         3,
         {"in", "4"}},
        {"d = 0\nFor i = 1 To 2\n  x = 1 + (2 + 12 \\ d)\n  Log.Add x\nNext",
         "d",
         1,
         2,
         {"6", "6"}},
        {"d = 0\nIf 12 \\ d = 3 Then\n  Log.Add \"yes\"\nElse\n  Log.Add \"no\"\nEnd If",
         "d",
         1,
         1,
         {"yes"}},
    };
    for (const Row& row : rows) {
        const auto source = debug(row.text, {});
        int errors = 0;
        source->onError = [&](MacroException& error) {
            ++errors;
            EXPECT_TRUE(error.GetText().View().starts_with("Error: Unknown error"));
            EXPECT_EQ(error.GetPosition(), row.line);
            EXPECT_EQ(macro.GetFramesCount(), row.frames);
            EXPECT_EQ(macro.GetPosition(0), row.line);
            variable(row.repaired).Assign(4);
            return true;
        };
        EXPECT_EQ(runSource(source.Get()), row.output) << row.text;
        EXPECT_EQ(errors, 1) << row.text;
        EXPECT_EQ(processor().GetExecutionMode(), Processor::emFinished);
    }
}

TEST_F(RunLoopTest, AnErrorThatNobodyRepairsEndsTheRunFromItsFrames) {
    const auto source = debug("x = 7\n"
                              "outer 1\n"
                              "Log.Add \"not reached\"\n"
                              "Sub outer(n)\n"
                              "  With Log\n"
                              "    inner n\n"
                              "  End With\n"
                              "End Sub\n"
                              "Sub inner(n)\n"
                              "  foo n\n"
                              "End Sub\n",
                              {});
    std::vector<std::string> frames;
    int errors = 0;
    source->onError = [&](MacroException&) {
        frames.clear();
        for (int i = 0; i < macro.GetFramesCount(); ++i)
            frames.push_back(std::string(macro.GetContext(i).View()) + " " +
                             std::to_string(macro.GetPosition(i)));
        return ++errors == 1; // the first time it tries again, in vain
    };
    EXPECT_EQ(runSource(source.Get()),
              Lines{"Object doesn't support this property or method: 'foo'"});
    EXPECT_EQ(errors, 2);
    EXPECT_EQ(frames, (Lines{"inner 9", "outer 5", "Macro global code 1"}));
    ASSERT_EQ(macro.GetFramesCount(), 1);
    EXPECT_EQ(macro.GetContext(0), "Macro global code");
    EXPECT_EQ(textOf(variable("x")), "7");
    EXPECT_EQ(processor().GetExecutionMode(), Processor::emFinished);
    EXPECT_EQ(processor().GetCurrentFunction(), nullptr);
    EXPECT_EQ(processor().GetLastErrorLine(), 9);
}

TEST_F(RunLoopTest, FaultyTextIsNeverRun) {
    const auto source = textSource("Log.Add 1\n\nx = = 1\n");
    EXPECT_EQ(runSource(source), Lines{"Syntax error: \nLine 3: x = = 1"});
    EXPECT_EQ(processor().GetExecutionMode(), Processor::emFinished);
    EXPECT_EQ(processor().GetLastErrorCode(), 24);
    EXPECT_EQ(processor().GetLastErrorLine(), 2);

    EXPECT_EQ(runText("Log.Add 1\nIf True Then\nFor i = 1 To 2\nEnd If\n").size(), 1u);

    EXPECT_EQ(runText("Log.Add 1\nFor i = 1 To 2\n  Log.Add i\n"), Lines{});
    EXPECT_EQ(processor().GetExecutionMode(), Processor::emStopped);
    EXPECT_EQ(processor().GetLastErrorCode(), 39);
    EXPECT_EQ(processor().GetLastErrorLine(), 1);
    EXPECT_EQ(processor().GetLastErrorText(), "Error: FOR statement without NEXT: ");
    EXPECT_EQ(runText("Log.Add 1"), Lines{"1"});
    EXPECT_EQ(processor().GetLastErrorCode(), 1);
}

// --- Limits ------------------------------------------------------------------------------------

TEST_F(RunLoopTest, RecursionEndsAtTheLimitOfFrames) {
    MacroLimits limits = Processor::GetLimits();
    limits.frames = 100;
    Processor::SetLimits(limits);
    const auto down = [this](int depth) {
        return runText("Log.Add down(" + std::to_string(depth) +
                       ")\n"
                       "Function down(n)\n"
                       "  If n > 1 Then down = down(n - 1) + 1 Else down = 1\n"
                       "End Function\n");
    };
    EXPECT_EQ(down(98), Lines{"98"});
    EXPECT_EQ(down(102), Lines{"Error: Unknown error: out of memory"});
    EXPECT_EQ(processor().GetLastErrorCode(), 20);
    EXPECT_EQ(macro.GetFramesCount(), 1);
    EXPECT_EQ(down(98), Lines{"98"});

    limits.frames = 500000;
    Processor::SetLimits(limits);
    EXPECT_EQ(down(100000), Lines{"100000"});
}
