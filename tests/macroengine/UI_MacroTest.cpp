#include "EngineFixture.h"

#include <SYS_Exception.h>

#include <memory>
#include <new>
#include <stdexcept>

namespace {

using Processor = MacroSupport;

class UI_MacroTest : public EngineTest {
protected:
    /// Runs other text from inside a method of the host.
    void runNested(std::string_view text, const char* function = "", Args args = {}) {
        UI_Macro inner(true);
        inner.Execute(textSource(text), function, args.data(), static_cast<int>(args.size()));
    }
    /// Nothing is running, and the engine can run again.
    void expectUsable() {
        EXPECT_EQ(processor().GetExecutionMode(), Processor::emFinished);
        EXPECT_EQ(UI_Macro::InPlaybackMode(), 0);
        EXPECT_EQ(macro.GetFramesCount(), 1);
        EXPECT_EQ(runText("Log.Add 1 + 1"), Lines{"2"});
    }
};

/// Tells when it is deleted.
class MortalSource : public MemorySource {
public:
    MortalSource(std::string_view text, bool& deleted) : MemorySource(text), m_Deleted(deleted) {}
    ~MortalSource() override { m_Deleted = true; }

private:
    bool& m_Deleted;
};

class EnvironmentChange {
public:
    EnvironmentChange(const char* name, const std::string& value) : m_Name(name) {
        const char* old = std::getenv(name);
        m_HadOld = old != nullptr;
        m_Old = old ? old : "";
        setenv(name, value.c_str(), 1);
    }
    EnvironmentChange(const EnvironmentChange&) = delete;
    EnvironmentChange& operator=(const EnvironmentChange&) = delete;
    ~EnvironmentChange() {
        if (m_HadOld)
            setenv(m_Name, m_Old.c_str(), 1);
        else
            unsetenv(m_Name);
    }

private:
    const char* m_Name;
    bool m_HadOld;
    std::string m_Old;
};

} // namespace

// --- Life, and the engine that is current -----------------------------------------------------

TEST(UI_MacroLife, EngineStartsAndEndsInPairsAnyNumberOfTimes) {
    for (int round = 0; round < 3; ++round) {
        MacroEngineDllInitialize();
        MacroEngineDllInitialize();
        Recorder log;
        {
            UI_Macro macro(true);
            macro.Register(log, "Log");
            SCL_Pointer<MemorySource> source = new MemorySource("Log.Add 6 * 7");
            macro.Execute(source, "", nullptr, 0);
            MacroEngineDllTerminate();
            macro.Execute(source, "", nullptr, 0);
        }
        EXPECT_EQ(log.lines, (Lines{"42", "42"}));
        EXPECT_EQ(MacroSupport::GetProcessor(), nullptr);
        MacroEngineDllTerminate();
    }
}

TEST(UI_MacroLife, StaticCallsAreSafeWithoutAProcessor) {
    ASSERT_EQ(MacroSupport::GetProcessor(), nullptr);
    UI_Macro macro(true); // has no engine until it needs one
    ASSERT_EQ(MacroSupport::GetProcessor(), nullptr);

    UI_Macro::RequestExit(5);
    EXPECT_EQ(UI_Macro::GetReturnValue(), 0);
    EXPECT_EQ(UI_Macro::ContinuePlayback("Options"), 2);
    EXPECT_EQ(UI_Macro::InRecordMode(), 0);
    EXPECT_EQ(UI_Macro::InPlaybackMode(), 0);
    EXPECT_EQ(UI_Macro::GetCompressID(), 0);
    EXPECT_EQ(UI_Macro::GetRelativeMode(), 0);
    EXPECT_EQ(UI_Macro::EnableAutomation("Log", nullptr), 0);
    EXPECT_NO_THROW(UI_Macro::OnError("nobody hears this"));
    EXPECT_EQ(macro.GetFramesCount(), 0);
    EXPECT_EQ(macro.GetContext(0), "");
    EXPECT_EQ(macro.GetPosition(0), 0);
    EXPECT_EQ(macro.GetSource(0), nullptr);

    AssertRecorder asserts;
    macro.Stop(); // there is no engine to stop
    EXPECT_EQ(asserts.Take().size(), 1u);
    EXPECT_EQ(MacroSupport::GetProcessor(), nullptr);
}

TEST(UI_MacroLife, AMacroThatIsNotCurrentRunsNothing) {
    Recorder log;
    UI_Macro macro(false);
    macro.Register(log, "Log");
    EXPECT_EQ(MacroSupport::GetProcessor(), nullptr);
    SCL_Pointer<MemorySource> source = new MemorySource("Log.Add 1");

    AssertRecorder asserts;
    EXPECT_TRUE(macro.Execute(source, "", nullptr, 0).IsEmpty());
    EXPECT_FALSE(asserts.Take().empty());
    EXPECT_TRUE(macro.ExecuteMacroString("Log.Add 1").IsEmpty());
    EXPECT_FALSE(asserts.Take().empty());
    EXPECT_TRUE(log.lines.empty());
}

TEST(UI_MacroLife, AnyOrderOfDestructionLeavesTheRightEngineCurrent) {
    Recorder log;
    auto first = std::make_unique<UI_Macro>(true);
    first->Register(log, "Log");
    MacroSupport* const firstEngine = MacroSupport::GetProcessor();
    auto second = std::make_unique<UI_Macro>(true);
    second->Register(log, "Log");
    auto third = std::make_unique<UI_Macro>(true);
    third->Register(log, "Log");
    MacroSupport* const thirdEngine = MacroSupport::GetProcessor();

    second.reset();
    EXPECT_EQ(MacroSupport::GetProcessor(), thirdEngine);
    third.reset(); // its parent has gone
    EXPECT_EQ(MacroSupport::GetProcessor(), nullptr);
    MacroSupport::SetProcessor(firstEngine);
    first.reset();
    EXPECT_EQ(MacroSupport::GetProcessor(), nullptr);
}

TEST_F(UI_MacroTest, CopiesHaveNoEngineAndAssignmentKeepsTheOwnOne) {
    MacroSupport* const original = &processor();
    {
        UI_Macro copy(macro);
        EXPECT_EQ(&processor(), original);
        UI_Macro other(true);
        other.Register(log, "Other");
        MacroSupport* const otherEngine = &processor();
        EXPECT_NE(otherEngine, original);
        other = macro;
        EXPECT_EQ(&processor(), otherEngine);
        other.Execute(textSource("Other.Add 1"), "", nullptr, 0);
    }
    EXPECT_EQ(log.lines, Lines{"1"});
    EXPECT_EQ(&processor(), original);
    EXPECT_EQ(runText("Log.Add 2"), Lines{"2"});
}

// --- Running ------------------------------------------------------------------------------------

TEST_F(UI_MacroTest, ProceduresTakeArgumentsAndGiveTheirValue) {
    const auto source = textSource("Log.Add \"module code\"\n"
                                   "Function plus(a, b)\n"
                                   "  plus = a + b\n"
                                   "End Function\n"
                                   "Sub inc(ByRef x)\n"
                                   "  x = x + 1\n"
                                   "End Sub\n"
                                   "Sub keep(ByVal x)\n"
                                   "  x = x + 1\n"
                                   "End Sub\n"
                                   "Function nothingToSay()\n"
                                   "End Function\n");
    UI_MacroVariant numbers[] = {40, 2};
    EXPECT_EQ(textOf(execute(source, "plus", numbers)), "42");
    EXPECT_EQ(textOf(execute(source, "PLUS", numbers)), "42");
    UI_MacroVariant texts[] = {"a", "b"};
    EXPECT_EQ(textOf(execute(source, "plus", texts)), "ab");
    EXPECT_TRUE(execute(source, "nothingToSay").IsEmpty());

    UI_MacroVariant value[] = {5};
    execute(source, "inc", value);
    EXPECT_EQ(textOf(value[0]), "5");

    UI_MacroVariant plain(5);
    UI_MacroVariantParam variable(UI_MacroVariant(7), false);
    for (UI_MacroVariant* const target : {&plain, static_cast<UI_MacroVariant*>(&variable)}) {
        UI_MacroVariant reference[] = {UI_MacroVariant(target)};
        const __int64 before = target->GetIntVal();
        execute(source, "inc", reference);
        EXPECT_EQ(target->GetIntVal(), before + 1);
        execute(source, "keep", reference);
        EXPECT_EQ(target->GetIntVal(), before + 1);
    }
    EXPECT_TRUE(log.lines.empty());
    expectUsable();
}

TEST_F(UI_MacroTest, WrongProceduresAndArgumentsAreErrors) {
    const auto source = textSource("Log.Add 1\n"
                                   "Sub s(a)\n"
                                   "End Sub\n"
                                   "Sub list(a())\n"
                                   "End Sub\n");
    UI_MacroVariant args[] = {1, 2};
    EXPECT_EQ(errorOf([&] { execute(source, "nope"); }), "Function or Sub nope not found");
    for (const char* name : {"s", "list"}) {
        EXPECT_EQ(errorOf([&] { execute(source, name, args); }), "Error: Unknown error: ") << name;
        EXPECT_EQ(errorOf([&] { execute(source, name); }), "Error: Unknown error: ") << name;
    }
    EXPECT_EQ(errorOf([&] { execute(source, "list", Args(args, 1)); }), "Error: Unknown error: ");
    EXPECT_TRUE(log.lines.empty());
    expectUsable();
}

TEST_F(UI_MacroTest, AnOpenedFileIsRunAgainAndAgain) {
    const TestFolder folder;
    const std::string file = folder.Write("lib.mcr", "Log.Add \"module\"\n"
                                                     "Function f(n)\n"
                                                     "  f = n + 1\n"
                                                     "End Function\n");
    macro.OpenMacroFile(file.c_str());
    UI_MacroVariant args[] = {1};
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(textOf(macro.ExecuteMacro("", "f", args, 1)), "2");
        EXPECT_TRUE(macro.ExecuteMacro("", "", nullptr, 0).IsEmpty());
    }
    EXPECT_EQ(log.lines, (Lines{"module", "module"}));
}

TEST_F(UI_MacroTest, TextRunsFromAFileThatIsGoneAfterwards) {
    const TestFolder folder;
    const EnvironmentChange change("TMPDIR", folder.GetPath().string());
    EXPECT_TRUE(macro.ExecuteMacroString("x = 20\nLog.Add x + 1").IsEmpty());
    EXPECT_EQ(log.lines, Lines{"21"});
    EXPECT_TRUE(folder.List().empty());

    // A run that fails leaves its file to the curious.
    EXPECT_EQ(errorOf([&] { macro.ExecuteMacroString("foo 1"); }),
              "Object doesn't support this property or method: 'foo'");
    ASSERT_EQ(folder.List().size(), 1u);
    EXPECT_TRUE(folder.List()[0].ends_with(".tmp"));
}

TEST_F(UI_MacroTest, TextThatFindsNoPlaceForItsFileIsAnException) {
    const EnvironmentChange change("TMPDIR", "/no/such/folder");
    try {
        macro.ExecuteMacroString("Log.Add 1");
        ADD_FAILURE() << "ran all the same";
    } catch (const SYS_Exception& error) {
        EXPECT_EQ(error.GetText(), "Cannot create a temporary file");
    }
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(UI_MacroTest, AMissingFileIsAnErrorWhateverWayItComes) {
    const std::string expected = "Error: Can not open file: /no/such/file.mcr";
    const auto check = [&](auto action) {
        try {
            action();
            ADD_FAILURE() << "no error";
        } catch (const MacroException& error) {
            EXPECT_EQ(error.GetText().View(), expected);
            EXPECT_EQ(error.GetPosition(), 0);
        }
        EXPECT_EQ(processor().GetLastErrorCode(), 36);
        EXPECT_EQ(processor().GetLastErrorLine(), 0);
    };
    check([&] { macro.ExecuteMacro("/no/such/file.mcr", "", nullptr, 0); });
    check([&] { macro.ExecuteMacro("/no/such/file", "f", nullptr, 0); });
    check([&] {
        macro.OpenMacroFile("/no/such/file.mcr");
        macro.ExecuteMacro("", "", nullptr, 0);
    });
    check([&] { macro.Execute(new MacroSourceFile("/no/such/file.mcr"), "", nullptr, 0); });
    EXPECT_EQ(runText("Log.Add 1"), Lines{"1"});
}

TEST_F(UI_MacroTest, FunctionNamesAndDescriptionsComeFromTheText) {
    EXPECT_EQ(macro.GetFunctionNames().GetCount(), 1);
    EXPECT_EQ(macro.GetFunctionNames()[0], "");
    EXPECT_EQ(macro.GetFunctionDescriptions().GetCount(), 0);

    const TestFolder folder;
    macro.OpenMacroFile(folder
                            .Write("lib.mcr", "' Adds two numbers.\n"
                                              "Function plus(a, b)\n"
                                              "End Function\n"
                                              "Sub plain\n"
                                              "End Sub\n"
                                              "' About the statement below.\n"
                                              "x = 1\n"
                                              "Public Sub other\n"
                                              "End Sub\n")
                            .c_str());
    const SCC_Array<SYS_String> names = macro.GetFunctionNames();
    const SCC_Array<SYS_String> descriptions = macro.GetFunctionDescriptions();
    ASSERT_EQ(names.GetCount(), 3);
    ASSERT_EQ(descriptions.GetCount(), 3);
    std::map<std::string, std::string> found;
    for (int i = 0; i < 3; ++i)
        found[std::string(names[i].View())] = descriptions[i].View();
    const std::map<std::string, std::string> expected = {
        {"plus", "Adds two numbers."}, {"plain", ""}, {"other", ""}};
    EXPECT_EQ(found, expected);

    // Another file has its own, and none are known of it before it is parsed.
    macro.OpenMacroFile(folder.Write("two.mcr", "Sub second\nEnd Sub\n").c_str());
    EXPECT_EQ(macro.GetFunctionDescriptions().GetCount(), 0);
    EXPECT_EQ(macro.GetFunctionNames().GetCount(), 1);
    EXPECT_EQ(macro.GetFunctionNames()[0], "second");
    macro.OpenMacroFile(folder.Write("none.mcr", "x = 1\n").c_str());
    EXPECT_EQ(macro.GetFunctionNames()[0], "");
}

// --- Objects, stopping, errors ------------------------------------------------------------------

TEST_F(UI_MacroTest, AReturnValueDoesNotEndTheRun) {
    log.On("Quit", [](Args args) { UI_Macro::RequestExit(static_cast<int>(args[0])); });
    EXPECT_EQ(runText("Log.Quit 7\nLog.Add \"still here\""), Lines{"still here"});
    EXPECT_EQ(UI_Macro::GetReturnValue(), 7);
}

TEST_F(UI_MacroTest, ErrorsOfTheHostCarryTheLine) {
    log.On("Fail", [] { UI_Macro::OnError("out of paper"); });
    for (const Feed feed : {Feed::Whole, Feed::LineByLine}) {
        const auto source = textSource("x = 1\n\nLog.Fail", feed);
        try {
            execute(source);
            ADD_FAILURE() << "no error";
        } catch (const MacroException& error) {
            EXPECT_EQ(error.GetText(), "out of paper");
            EXPECT_EQ(error.GetPosition(), 2);
            EXPECT_EQ(error.GetSource(), source.Get());
        }
        EXPECT_EQ(processor().GetLastErrorCode(), 0);
        EXPECT_EQ(processor().GetLastErrorText(), "out of paper");
    }
    runText("x = 1");
    EXPECT_EQ(processor().GetLastErrorCode(), 1);
    EXPECT_EQ(processor().GetLastErrorText(), "");
    expectUsable();
}

TEST_F(UI_MacroTest, ARunningEngineRefusesToStartAgain) {
    bool deleted = false;
    const std::vector<std::pair<const char*, std::function<void()>>> calls = {
        {"Execute", [&] { macro.Execute(new MortalSource("x = 1", deleted), "", nullptr, 0); }},
        {"ExecuteMacro", [&] { macro.ExecuteMacro("other.mcr", "", nullptr, 0); }},
        {"ExecuteMacro in use", [&] { macro.ExecuteMacro("", "f", nullptr, 0); }},
        {"ExecuteMacroString", [&] { macro.ExecuteMacroString("x = 1"); }},
        {"OpenMacroFile", [&] { macro.OpenMacroFile("other.mcr"); }},
    };
    log.On("Again", [&] {
        for (const auto& [name, call] : calls) {
            const std::string error = errorOf(call);
            EXPECT_TRUE(error.starts_with("Error: Illegal nesting")) << name << ": " << error;
        }
    });
    EXPECT_EQ(runText("Sub f\n  x = 1\n  Log.Again\n  Log.Add x\nEnd Sub\nf\nLog.Add \"end\""),
              (Lines{"1", "end"}));
    EXPECT_TRUE(deleted);
    expectUsable();
}

TEST_F(UI_MacroTest, StoppingInsideAMethodEndsTheRun) {
    log.On("Stop", [&] {
        macro.Stop();
        // Until the method returns, the host may still look around.
        EXPECT_EQ(macro.GetFramesCount(), 2);
        EXPECT_EQ(macro.GetContext(0), "f");
        ASSERT_NE(processor().LookupVar("x"), nullptr);
        EXPECT_EQ(textOf(*processor().LookupVar("x")), "8");
    });
    EXPECT_EQ(runText("Sub f\n  x = 8\n  Log.Stop\n  Log.Add 1\nEnd Sub\n"
                      "For i = 1 To 3\n  f\nNext\nLog.Add 2"),
              Lines{});
    EXPECT_EQ(processor().GetExecutionMode(), Processor::emStopped);
    EXPECT_EQ(processor().GetSource(), nullptr);
    EXPECT_EQ(macro.GetFramesCount(), 0);
    EXPECT_EQ(runText("Log.Add 3"), Lines{"3"});
    macro.Stop();
    EXPECT_EQ(macro.GetFramesCount(), 0);
    EXPECT_EQ(runText("Log.Add 4"), Lines{"4"});
}

TEST_F(UI_MacroTest, AStopExceptionEndsTheRunWithoutAnError) {
    const char* text = "Sub f\n  Log.Leave\n  Log.Add 1\nEnd Sub\nf\nLog.Add 2";
    AssertRecorder asserts;
    log.On("Leave", [] { throw MacroStopException(); });
    EXPECT_EQ(runText(text), Lines{});
    EXPECT_EQ(asserts.Take(), Messages{"Unexpected Macro execution mode. Ivar Solde"});
    expectUsable();

    log.On("Leave", [] {
        processor().SetExecutionMode(Processor::emStopped);
        throw MacroStopException();
    });
    EXPECT_EQ(runText(text), Lines{});
    EXPECT_EQ(processor().GetExecutionMode(), Processor::emStopped);
    EXPECT_EQ(macro.GetFramesCount(), 1);
    EXPECT_EQ(runText("Log.Add 3"), Lines{"3"});
}

TEST_F(UI_MacroTest, DestroyingARunningMacroStopsIt) {
    MacroSupport* const outer = &processor();
    auto owned = std::make_unique<UI_Macro>(true);
    log.On("Destroy", [&] { owned.reset(); });
    AssertRecorder asserts;
    const UI_MacroVariant result = owned->Execute(
        textSource("Sub f\n  Log.Add 1\n  Log.Destroy\n  Log.Add 2\nEnd Sub\nf\nLog.Add 3"), "",
        nullptr, 0);
    EXPECT_EQ(asserts.Take().size(), 1u);
    EXPECT_TRUE(result.IsEmpty());
    EXPECT_EQ(log.lines, Lines{"1"});
    EXPECT_EQ(&processor(), outer);
    EXPECT_EQ(runText("Log.Add 4"), Lines{"4"});
}

TEST_F(UI_MacroTest, ExceptionsOfTheHostPassUnchanged) {
    const char* text = "Sub f\n  Log.Throw\nEnd Sub\n"
                       "x = 5\nFor i = 1 To 2\n  f\nNext\nLog.Add \"not reached\"";
    const auto check = [&](auto expected) {
        log.On("Throw", [expected] { throw expected; });
        EXPECT_THROW(execute(textSource(text)), decltype(expected));
        ASSERT_NE(processor().LookupVar("x"), nullptr);
        EXPECT_EQ(textOf(*processor().LookupVar("x")), "5");
        EXPECT_TRUE(log.lines.empty());
        expectUsable();
        log.lines.clear();
    };
    check(std::runtime_error("of the host"));
    check(SYS_Exception("of the host"));
    check(42);
    check(MacroException("own words", "own.mcr", 77, nullptr));

    log.On("Throw", [] { throw MacroException("own words", "own.mcr", 77, nullptr); });
    try {
        execute(textSource(text));
        ADD_FAILURE() << "no error";
    } catch (const MacroException& error) {
        EXPECT_EQ(error.GetText(), "own words");
        EXPECT_EQ(error.GetFilePath(), "own.mcr");
        EXPECT_EQ(error.GetPosition(), 77);
    }
}

TEST_F(UI_MacroTest, LackOfMemoryIsAMacroError) {
    log.On("NoMemory", [] { throw std::bad_alloc(); });
    log.On("TooLong", [] { throw std::length_error("too long"); });
    const Lines expected = {"Error: Unknown error: out of memory"};
    EXPECT_EQ(runText("x = 1\nLog.NoMemory"), expected);
    EXPECT_EQ(processor().GetLastErrorCode(), 20);
    EXPECT_EQ(processor().GetLastErrorLine(), 1);
    EXPECT_EQ(runText("Log.TooLong"), expected);
    expectUsable();
}
