// Macros that a host runs from inside a method that a macro has called.

#include "EngineFixture.h"

namespace {

using Processor = MacroSupport;
using NestedMacroTest = EngineTest;

} // namespace

TEST_F(NestedMacroTest, FramesRunOnThroughTheParents) {
    const auto outerSource = textSource("Sub f\n"
                                        "  Log.Inner\n"
                                        "End Sub\n"
                                        "f\n"
                                        "Log.Add \"outer\"\n");
    const auto innerSource = textSource("Sub g(n)\n"
                                        "  Log.Look n\n"
                                        "End Sub\n"
                                        "g 1\n");
    MacroSupport* const outer = &processor();
    int looks = 0;
    log.On("Look", [&] {
        ++looks;
        EXPECT_NE(&processor(), outer);
        EXPECT_EQ(processor().GetParentProcessor(), outer);
        ASSERT_EQ(macro.GetFramesCount(), 4);
        const char* const contexts[] = {"g", "Macro global code", "f", "Macro global code"};
        const int positions[] = {1, 3, 1, 3};
        for (int i = 0; i < 4; ++i) {
            EXPECT_EQ(macro.GetContext(i), contexts[i]) << i;
            EXPECT_EQ(macro.GetPosition(i), positions[i]) << i;
            EXPECT_EQ(macro.GetSource(i),
                      i < 2 ? static_cast<MacroSource*>(innerSource) : outerSource.Get())
                << i;
        }
    });
    log.On("Inner", [&] {
        {
            UI_Macro inner(true);
            inner.Execute(innerSource, "", nullptr, 0);
        }
        EXPECT_EQ(&processor(), outer);
        EXPECT_EQ(macro.GetFramesCount(), 2);
    });
    execute(outerSource);
    EXPECT_EQ(looks, 1);
    EXPECT_EQ(log.lines, Lines{"outer"});
}

TEST_F(NestedMacroTest, ObjectsAndVariablesStayWhereTheyBelong) {
    Recorder own("Own");
    log.On("Kind", [&](Args args) {
        const UI_MacroVariant* body = args[0].getBody();
        log.lines.push_back(body && body->IsMacroEval() ? "object" : "value");
    });
    log.On("Inner", [&] {
        UI_Macro inner(true);
        inner.Register(own, "Own");
        inner.Execute(textSource("Log.Kind Own\nLog.Add \"x=\" & x\nx = 2"), "", nullptr, 0);
    });
    EXPECT_EQ(runText("x = 1\nLog.Inner\nLog.Kind Own\nLog.Add \"x=\" & x"),
              (Lines{"object", "x=", "value", "x=1"}));
}

TEST_F(NestedMacroTest, RelativeFilesStandBesideTheMacroThatRunsThem) {
    const TestFolder folder;
    folder.Write("beside.mcr", "Log.Add \"beside\"");
    folder.Write("below/deep.mcr", "Log.Add \"deep\"\nLog.Inner \"next\"");
    folder.Write("below/next.mcr", "Log.Add \"next\"");
    const std::string absolute = folder.Write("absolute.mcr", "Log.Add \"absolute\"");
    log.On("Inner", [&](Args args) {
        UI_Macro inner(true);
        inner.ExecuteMacro(static_cast<SYS_String>(args[0]), "", nullptr, 0);
    });
    const std::string main = folder.Write("main.mcr", "Log.Inner \"beside.mcr\"\n"
                                                      "Log.Inner \"beside\"\n"
                                                      "Log.Inner \"below/deep.mcr\"\n"
                                                      "Log.Inner \"below\\deep\"\n"
                                                      "Log.Inner \"" +
                                                          absolute + "\"\n");
    macro.ExecuteMacro(main.c_str(), "", nullptr, 0);
    EXPECT_EQ(log.lines, (Lines{"beside", "beside", "deep", "next", "deep", "next", "absolute"}));

    // Text without a file has no folder; then the working directory counts.
    EXPECT_EQ(errorOf([&] { execute(textSource("Log.Inner \"beside.mcr\"")); }),
              "Error: Can not open file: " +
                  (std::filesystem::current_path() / "beside.mcr").string());
    const std::filesystem::path old = std::filesystem::current_path();
    std::filesystem::current_path(folder.GetPath());
    EXPECT_EQ(runText("Log.Inner \"beside\""), Lines{"beside"});
    std::filesystem::current_path(old);
}

TEST_F(NestedMacroTest, AnErrorOfTheInnerMacroEndsBothUnlessTheHostCatchesIt) {
    bool catches = true;
    MacroSupport* const outer = &processor();
    log.On("Inner", [&] {
        const auto fail = [&] {
            UI_Macro inner(true);
            inner.Execute(textSource("x = 1\nfoo 1"), "", nullptr, 0);
        };
        if (!catches)
            fail();
        log.lines.push_back(errorOf(fail));
        EXPECT_EQ(outer->GetExecutionMode(), Processor::emStepOver);
        outer->SetExecutionMode(Processor::emRun);
    });
    log.On("Mode", [&] { outer->SetExecutionMode(Processor::emStepOver); });
    const char* const text = "Log.Mode : Log.Inner\nLog.Add \"after\"";
    const std::string error = "Object doesn't support this property or method: 'foo'";
    EXPECT_EQ(runText(text), (Lines{error, "after"}));
    catches = false;
    EXPECT_EQ(runText(text), Lines{error});
    EXPECT_EQ(&processor(), outer);
    EXPECT_EQ(runText("Log.Add 1"), Lines{"1"});
}

TEST_F(NestedMacroTest, TheParentTakesOverTheModeOfItsChild) {
    struct Row {
        Processor::ExecutionMode before; // of the parent
        const char* function;            // that runs in the child
        Processor::ExecutionMode child;  // what it sets its own mode to
        Processor::ExecutionMode after;  // of the parent
    };
    const Row rows[] = {
        {Processor::emRun, "f", Processor::emRun, Processor::emRun},
        {Processor::emStepOver, "f", Processor::emRun, Processor::emStepOver},
        {Processor::emStopped, "f", Processor::emRun, Processor::emStopped},
        {Processor::emStepInto, "f", Processor::emRun, Processor::emRun},
        {Processor::emStepOut, "f", Processor::emRun, Processor::emRun},
        {Processor::emRun, "f", Processor::emStopped, Processor::emStopped},
        {Processor::emStepOver, "f", Processor::emStopped, Processor::emStopped},
        {Processor::emRun, "f", Processor::emStepInto, Processor::emRun},
        {Processor::emStepOut, "f", Processor::emStepInto, Processor::emStepOut},
        {Processor::emRun, "f", Processor::emStepOut, Processor::emStepOver},
        {Processor::emRun, "f", Processor::emStepOver, Processor::emStepOver},
        {Processor::emStopped, "f", Processor::emStepOver, Processor::emStopped},
        {Processor::emStepOut, "", Processor::emRun, Processor::emStepOut},
    };
    log.On("Mode", [](Args args) {
        processor().SetExecutionMode(
            static_cast<Processor::ExecutionMode>(static_cast<int>(args[0])));
    });
    for (const Row& row : rows) {
        Processor::ExecutionMode after = Processor::emFinished;
        log.On("Go", [&] {
            MacroSupport& outer = processor();
            outer.SetExecutionMode(row.before);
            {
                UI_Macro inner(true);
                UI_MacroVariant args[] = {static_cast<int>(row.child)};
                inner.Execute(textSource("Sub f(m)\n  Log.Mode m\nEnd Sub"), row.function, args,
                              *row.function ? 1 : 0);
            }
            after = outer.GetExecutionMode();
            outer.SetExecutionMode(Processor::emRun);
        });
        EXPECT_EQ(runText("Log.Go\nLog.Add 1"), Lines{"1"});
        EXPECT_EQ(after, row.after)
            << "parent " << row.before << ", child " << row.child << " " << row.function;
    }
}

TEST_F(NestedMacroTest, SteppingIntoAMethodStepsTheChildToo) {
    std::vector<int> modes;
    log.On("Mode", [&] { modes.push_back(processor().GetExecutionMode()); });
    for (const Processor::ExecutionMode parent : {Processor::emRun, Processor::emStepInto}) {
        log.On("Go", [&, parent] {
            MacroSupport& outer = processor();
            outer.SetExecutionMode(parent);
            for (const char* function : {"f", ""}) {
                UI_Macro inner(true);
                inner.Execute(textSource("Log.Mode\nSub f\n  Log.Mode\nEnd Sub"), function, nullptr,
                              0);
                outer.SetExecutionMode(parent);
            }
            outer.SetExecutionMode(Processor::emRun);
        });
        runText("Log.Go");
    }
    EXPECT_EQ(modes, (std::vector<int>{Processor::emRun, Processor::emRun, Processor::emStepInto,
                                       Processor::emStepOver}));
}

TEST_F(NestedMacroTest, NestingHasALimit) {
    MacroLimits limits = MacroSupport::GetLimits();
    limits.nestedRuns = 6;
    MacroSupport::SetLimits(limits);
    int depth = 0;
    int deepest = 0;
    log.On("Deeper", [&] {
        deepest = std::max(deepest, ++depth);
        ASSERT_LT(depth, 100);
        struct Level {
            int& count;
            ~Level() { --count; }
        } level{depth};
        UI_Macro inner(true);
        inner.Execute(textSource("Log.Deeper"), "", nullptr, 0);
    });
    const Lines output = runText("Log.Deeper");
    ASSERT_EQ(output.size(), 1u);
    EXPECT_TRUE(output[0].starts_with("Error: Illegal nesting")) << output[0];
    EXPECT_GE(deepest, 4);
    EXPECT_LE(deepest, 7);
    EXPECT_EQ(runText("Log.Add 1"), Lines{"1"});
}

TEST_F(NestedMacroTest, TheHostMayCallProceduresOfTheRunningMacro) {
    Lines results;
    log.On("Ask", [&](Args args) {
        const int frames = macro.GetFramesCount();
        const long line = processor().GetCurrentLine();
        UI_MacroVariant copy[] = {args[0]};
        results.push_back(textOf(processor().Call("twice", copy, 1)));
        results.push_back(errorOf([&] { processor().Call("fails", nullptr, 0); }));
        EXPECT_EQ(macro.GetFramesCount(), frames);
        EXPECT_EQ(processor().GetCurrentLine(), line);
        EXPECT_EQ(processor().GetExecutionMode(), Processor::emRun);
        return 100;
    });
    EXPECT_EQ(runText("Function twice(ByVal n)\n"
                      "  twice = n * 2\n"
                      "End Function\n"
                      "Sub fails\n"
                      "  foo 1\n"
                      "End Sub\n"
                      "Function f(n)\n"
                      "  f = n + Log.Ask(n) + n\n"
                      "End Function\n"
                      "Log.Add f(5)\n"),
              Lines{"110"});
    EXPECT_EQ(results, (Lines{"10", "Object doesn't support this property or method: 'foo'"}));
}
