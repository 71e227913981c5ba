// The logs of recorded lines: the one of the program run, and the one that the host names.

#include "macroengine/EngineFixture.h"
#include "system/platform/TestPlatform.h"

#include "recording/LogRecorder.h"

#include <sstream>

namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

class LogsTest : public EngineTest {
protected:
    static void record(const char* text, int id = 0) { MacroSupport::Record(text, id, 0); }
    fs::path file(const char* name) const { return m_Folder.GetPath() / name; }

    TestFolder m_Folder;
    AssertRecorder m_Asserts;
};

// --- The log that the host names -----------------------------------------------------------------

class NamedLogTest : public LogsTest {
protected:
    ~NamedLogTest() override {
        if (UI_Macro::InBMWLoggingMode())
            UI_Macro::SetBMWLogFile(nullptr, 0);
    }
    int open(const char* name, bool append = false) const {
        return UI_Macro::SetBMWLogFile(file(name).c_str(), append);
    }
};

TEST_F(NamedLogTest, KeepsWhatIsRecordedWhileNoMacroRuns) {
    log.On("Say", [&](Args args) { log.Record(textOf(args[0]).c_str(), 0); });
    ASSERT_EQ(open("a.log"), 1);
    EXPECT_EQ(UI_Macro::InBMWLoggingMode(), 1);
    record("before");
    EXPECT_EQ(contentOf(file("a.log")), "before\n") << "written at once";
    EXPECT_EQ(runText("Log.Say \"inside\"\nLog.Add 1"), Lines{"1"});
    processor().SetCompressionMode(true);
    for (int i = 0; i < 3; ++i)
        record("uncompressed", 7);
    record(nullptr);
    EXPECT_EQ(UI_Macro::SetBMWLogFile(nullptr, 0), 1);
    EXPECT_EQ(UI_Macro::InBMWLoggingMode(), 0);
    record("after");
    EXPECT_EQ(contentOf(file("a.log")), "before\nuncompressed\nuncompressed\nuncompressed\n");
}

TEST_F(NamedLogTest, GoesOnOrBeginsAnew) {
    for (const bool append : {false, true, true, false}) {
        ASSERT_EQ(open("a.log", append), 1);
        record(append ? "more" : "new");
        UI_Macro::SetBMWLogFile(nullptr, 0);
        EXPECT_EQ(contentOf(file("a.log")).substr(0, 9), append ? "new\nmore\n" : "new\n");
    }
    EXPECT_EQ(contentOf(file("a.log")), "new\n");
}

TEST_F(NamedLogTest, StaysWithTheFileThatIsOpen) {
    ASSERT_EQ(open("a.log"), 1);
    record("one");
    EXPECT_EQ(open("a.log"), 1);
    EXPECT_EQ(m_Asserts.Take(), Messages{});
    EXPECT_EQ(open("b.log"), 1);
    EXPECT_EQ(m_Asserts.Take(), Messages{"Attempt to open another BMW file"});
    record("two");
    EXPECT_EQ(contentOf(file("a.log")), "one\ntwo\n");
    EXPECT_FALSE(fs::exists(file("b.log")));
}

TEST_F(NamedLogTest, AFileThatCannotBeOpenedLeavesNoLog) {
    for (const char* name : {"", "no/such/folder.log"}) {
        EXPECT_EQ(open(name), 0);
        EXPECT_EQ(m_Asserts.Take(), Messages{"Failed to open BMW file for writing"});
        EXPECT_EQ(UI_Macro::InBMWLoggingMode(), 0);
    }
    EXPECT_EQ(UI_Macro::SetBMWLogFile(nullptr, 0), 0);
    EXPECT_EQ(m_Asserts.Take(), Messages{"Failed to open BMW file for writing"});
    EXPECT_EQ(open("a.log"), 1);
    record("works");
    EXPECT_EQ(contentOf(file("a.log")), "works\n");
}

TEST_F(NamedLogTest, BelongsToItsProcessor) {
    {
        UI_Macro nested(true);
        nested.Register(log, "Log");
        ASSERT_EQ(open("a.log"), 1);
    }
    EXPECT_EQ(UI_Macro::InBMWLoggingMode(), 0);
    EXPECT_EQ(open("b.log"), 1);
    record("b");
    EXPECT_EQ(contentOf(file("a.log")), "");
    EXPECT_EQ(contentOf(file("b.log")), "b\n");
}

// --- The log of the program run ------------------------------------------------------------------

/// There is one such log in a process, so each case has a process of its own.
class ProgramLogTest : public LogsTest {
protected:
    template <class Case>
    void inOwnProcess(const std::vector<SYS_String>& arguments, Case run) const {
        const auto child = [&] {
            TestPlatform platform;
            platform.arguments = arguments;
            platform.executable = SYS_String((m_Folder.GetPath() / "tool").c_str());
            run();
            std::_Exit(testing::Test::HasFailure() ? 1 : 0);
        };
        EXPECT_EXIT(child(), testing::ExitedWithCode(0), "");
    }
    static void recordRun(const char* text) {
        processor().InitBackgroundMode();
        record(text);
    }
};

TEST_F(ProgramLogTest, WithoutTheSwitchThereIsNone) {
    inOwnProcess({"tool", "log"}, [] {
        recordRun("a");
        EXPECT_FALSE(LogRecorder::Instance().InBackgroundMode());
    });
    EXPECT_EQ(m_Folder.List(), Lines{});
}

TEST_F(ProgramLogTest, KeepsTheLogOfTheRunBefore) {
    for (const char* text : {"first", "second", "third"})
        inOwnProcess({"tool", "--log"}, [text] {
            recordRun(text);
            EXPECT_TRUE(LogRecorder::Instance().InBackgroundMode());
            EXPECT_FALSE(processor().InBackgroundMode());
        });
    EXPECT_EQ(contentOf(file("Logs/tool.log")), "third\n");
    EXPECT_EQ(contentOf(file("Logs/tool.bak")), "second\n");
}

TEST_F(ProgramLogTest, TheSwitchMayNameTheFile) {
    const struct {
        std::string value;
        const char* made;
    } cases[] = {
        {"day", "Logs/day.log"},
        {".txt", "Logs/tool.txt"},
        {file("here").string(), "here.log"},
        {file("whole.name").string(), "whole.name"},
    };
    for (const auto& each : cases) {
        inOwnProcess({"tool", "/log", each.value.c_str()}, [] { recordRun("a"); });
        EXPECT_EQ(contentOf(file(each.made)), "a\n") << each.value;
    }
}

TEST_F(ProgramLogTest, TakesEverythingThatIsRecordedToTheEnd) {
    inOwnProcess({"tool", "-log"}, [this] {
        log.On("Say", [&](Args args) { log.Record(textOf(args[0]).c_str(), 0); });
        recordRun("outside");
        EXPECT_EQ(runText("Log.Say \"inside\""), Lines{});
        {
            UI_Macro nested(true);
            recordRun("nested"); // asks for the log again, which changes nothing
        }
        processor().SetCompressionMode(true);
        for (const char* text : {"drag 1", "drag 2", "drag 3"})
            record(text, 5);
        record("end");
        processor().SetCompressionMode(false);
        record("same", 5);
        record("same", 5);
        LogRecorder::Instance().Suspend(true);
        record("not this");
        LogRecorder::Instance().Suspend(false);
        EXPECT_EQ(contentOf(file("Logs/tool.log")),
                  "outside\ninside\nnested\ndrag 1\ndrag 3\nend\nsame\nsame\n");
    });
}

TEST_F(ProgramLogTest, AFileThatCannotBeOpenedIsNoFault) {
    m_Folder.Write("Logs", "a file where the folder should be");
    inOwnProcess({"tool", "-log"}, [this] {
        recordRun("a");
        EXPECT_FALSE(LogRecorder::Instance().InBackgroundMode());
        EXPECT_EQ(runText("Log.Add 1"), Lines{"1"});
    });
    EXPECT_EQ(m_Folder.List(), Lines{"Logs"});
}

TEST_F(LogsTest, TheLogRecorderIsNeverTheCurrentProcessor) {
    MacroSupport* current = MacroSupport::GetProcessor();
    EXPECT_NE(current, &LogRecorder::Instance());
    MacroSupport::SetProcessor(&LogRecorder::Instance());
    EXPECT_EQ(m_Asserts.Take().size(), 1u);
    EXPECT_EQ(MacroSupport::GetProcessor(), current);
    MacroSupport::SetProcessor(nullptr);
    EXPECT_EQ(MacroSupport::GetProcessor(), nullptr);
    MacroSupport::SetProcessor(current);
}

} // namespace
