// Runs every macro below tests/macros inside this program in several ways of reading and walking
// it. Each way must give what the file states: the ways are each other's oracle.

#include "MacroFiles.h"
#include "macroengine/EngineFixture.h"

#include <Scripting.h>

namespace {

using namespace macrofiles;

/// How the run is driven.
enum class Drive {
    Plain,
    StopAtEveryStatement,
    StepInto,
    StepOver,
    StepOut,
    ReparseFirst,      // every line is parsed again, all at once
    ReparseUnderTheRun // every line by itself, while the first statement waits
};

MacroParser& parser() { return static_cast<MacroParser&>(*MacroSupport::GetProcessor()); }

void reparse(bool together) {
    const auto* unit = parser().GetTree().GetCurrentUnit();
    const int count = static_cast<int>(unit->m_Lines.size());
    SCL_Vector<MacroParser::LineChange> changes;
    for (int line = 0; line < count; ++line) {
        changes.push_back({2, line});
        if (together && line + 1 < count)
            continue;
        EXPECT_TRUE(parser().Reparse(changes));
        changes.clear();
    }
}

/// Stops at each statement, or steps all the way: each pause is answered with the next step.
class DrivenSource : public MemorySource {
public:
    DrivenSource(std::string_view text, Feed feed, Drive drive, const std::string& path)
        : MemorySource(text, feed, path.c_str()), m_Drive(drive) {}

    bool IsBreakPoint(long) override {
        if (m_Drive == Drive::StopAtEveryStatement)
            return m_Stop = !m_Stop;
        if (m_Started)
            return false;
        m_Started = true;
        if (m_Drive == Drive::StepInto || m_Drive == Drive::StepOver || m_Drive == Drive::StepOut)
            goOn();
        else if (m_Drive == Drive::ReparseUnderTheRun)
            reparse(false);
        return false;
    }
    MacroSource* Clone(char const* name) override {
        return new DrivenSource(ReadWholeFile(name), LineByLine() ? Feed::LineByLine : Feed::Whole,
                                m_Drive, name);
    }
    void OnPause() override {
        ++pauses;
        goOn();
    }

    int pauses = 0;

private:
    void goOn() {
        MacroSupport::GetProcessor()->SetExecutionMode(
            m_Drive == Drive::StepInto  ? MacroSupport::emStepInto
            : m_Drive == Drive::StepOut ? MacroSupport::emStepOut
                                        : MacroSupport::emStepOver);
    }

    const Drive m_Drive;
    bool m_Stop = false;
    bool m_Started = false;
};

struct Outcome {
    std::string output;
    std::string errorText;
    int errorLine = 0; // from 1
};

class MacroModes : public EngineTest, public testing::WithParamInterface<MacroCase> {
protected:
    MacroModes() : m_Console("Console") {
        scripting::Register();
        macro.Register(m_Console, "Console");
        m_Console.On("Write", [this](Args values) { write(values); });
        m_Console.On("WriteLine", [this](Args values) {
            write(values);
            m_Output += '\n';
        });
    }
    // Only these macros have the classes: those that are cut anywhere must not reach the disk.
    ~MacroModes() override { scripting::Revoke(); }

    Outcome runAs(const std::string& text, const std::string& path, Feed feed, Drive drive) {
        m_Output.clear();
        Outcome outcome;
        const SCL_Pointer<MacroSource> source(new DrivenSource(text, feed, drive, path));
        try {
            if (drive == Drive::ReparseFirst)
                runReparsed(source);
            else
                execute(source);
        } catch (const MacroException& error) {
            outcome.errorText = firstLine(std::string(error.GetText().View()));
            outcome.errorLine = error.GetPosition() + 1;
        }
        if (outcome.errorText.empty() &&
            processor().GetExecutionMode() == MacroSupport::emStopped) {
            outcome.errorText = firstLine(std::string(processor().GetLastErrorText().View()));
            outcome.errorLine = static_cast<int>(processor().GetLastErrorLine()) + 1;
        }
        outcome.output = m_Output;
        return outcome;
    }

private:
    static void runReparsed(MacroSource* source) {
        parser().SetSource(source);
        if (!parser().Parse())
            return;
        reparse(true);
        parser().SetExecutionMode(MacroSupport::emRun);
        parser().PlayBack(0, nullptr, nullptr);
    }
    void write(Args values) {
        for (const UI_MacroVariant& value : values)
            m_Output += textOf(value);
    }

    Recorder m_Console;
    std::string m_Output;
};

/// The files that a macro reads stand beside it.
class WorkingFolder {
public:
    explicit WorkingFolder(const fs::path& folder) : m_Old(fs::current_path()) {
        fs::current_path(folder);
    }
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;
    ~WorkingFolder() { fs::current_path(m_Old); }

private:
    const fs::path m_Old;
};

TEST_P(MacroModes, Agree) {
    const std::string path = GetParam().Path();
    const std::string& text = GetParam().text;
    const Expectation expected = readExpectation(text);
    if (!expected.input.empty() || text.find('\0') != std::string::npos)
        return; // the host's own affair; a text given by lines has no end in its middle
    const bool hasRem = text.find("rem ") != std::string::npos ||
                        text.find("Rem ") != std::string::npos ||
                        text.find("REM ") != std::string::npos;
    const bool hasMark = text.starts_with("\xEF\xBB\xBF");
    const std::string given = hasMark ? text.substr(3) : text;

    const WorkingFolder folder(fs::path(path).parent_path());
    struct Way {
        const char* name;
        Feed feed;
        Drive drive;
    };
    for (const Way& way :
         {Way{"whole", Feed::Whole, Drive::Plain},
          Way{"line by line", Feed::LineByLine, Drive::Plain},
          Way{"every statement", Feed::Whole, Drive::StopAtEveryStatement},
          Way{"step into", Feed::Whole, Drive::StepInto},
          Way{"step over, line by line", Feed::LineByLine, Drive::StepOver},
          Way{"step out", Feed::Whole, Drive::StepOut},
          Way{"parsed again", Feed::Whole, Drive::ReparseFirst},
          Way{"parsed again, line by line", Feed::LineByLine, Drive::ReparseFirst},
          Way{"parsed again while it runs", Feed::Whole, Drive::ReparseUnderTheRun}}) {
        if (way.feed == Feed::LineByLine && text.find("\nrem\n") != std::string::npos)
            continue; // a line that ends behind the word is a name
        SCOPED_TRACE(way.name);
        const Outcome outcome = runAs(given, path, way.feed, way.drive);
        EXPECT_EQ(outcome.output, expected.output);
        EXPECT_EQ(outcome.errorText, withoutTrailingBlanks(expected.errorText));
        // A rem line counts twice where the scanner counts lines, and lines behind the last one
        // exist for it alone.
        if (expected.HasError() && (way.feed == Feed::Whole || !hasRem) &&
            expected.errorText != "Syntax error: ") {
            EXPECT_EQ(std::to_string(outcome.errorLine), expected.errorLine);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, MacroModes, testing::ValuesIn(findMacros()), testName);

} // namespace
