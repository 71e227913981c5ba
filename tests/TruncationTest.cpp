// Every macro of the suite, cut at every byte: a result or an error, never a crash, a hang or a
// leak.

#include "MacroFiles.h"
#include "macroengine/EngineFixture.h"

#include <cstring>

namespace {

using namespace macrofiles;

/// A cut turns "End WithDlg" into "End With", which is reported where it ends the other block.
bool failUnlessCutWord(const char* message, const char* file, int line) {
    if (!std::strstr(message, "closed by the other word"))
        ADD_FAILURE_AT(file, line) << "Unexpected assertion: " << message;
    return true;
}

constexpr int kStatements = 2000; // a cut may turn a loop into an endless one

class Truncation : public EngineTest, public testing::WithParamInterface<MacroCase> {
protected:
    Truncation() : m_Console("Console") {
        fs::current_path(m_Folder.GetPath()); // a cut may write where the macro only reads
        macro.Register(m_Console, "Console");
        m_Console.On("Write", [] {});
        m_Console.On("WriteLine", [] {});
        MacroHostHooks hooks;
        hooks.statement = [this](long) {
            if (--m_Left == 0)
                macro.Stop();
        };
        MacroSupport::SetHostHooks(hooks);
        // Recursion that has lost its end stays small.
        MacroLimits limits;
        limits.frames = 1000;
        MacroSupport::SetLimits(limits);
    }

    ~Truncation() override {
        kel_ns::SetAssertHandler(m_OldHandler);
        fs::current_path(m_Old);
    }

    void runCut(std::string_view text, Feed feed) {
        m_Left = kStatements;
        try {
            execute(textSource(text, feed));
        } catch (const MacroException& error) {
            EXPECT_FALSE(error.GetText().IsEmpty());
        }
        EXPECT_FALSE(processor().IsExecuting());
    }

private:
    const kel_ns::SCL_AssertHandler m_OldHandler = kel_ns::SetAssertHandler(failUnlessCutWord);
    const fs::path m_Old = fs::current_path();
    const TestFolder m_Folder;
    Recorder m_Console;
    int m_Left = 0;
};

TEST_P(Truncation, GivesAResultOrAnError) {
    const std::string& text = GetParam().text;
    for (std::size_t length = 0; length < text.size(); ++length) {
        SCOPED_TRACE(std::to_string(length) + " bytes");
        runCut(std::string_view(text).substr(0, length),
               length % 2 ? Feed::LineByLine : Feed::Whole);
        if (HasFailure())
            return;
    }
}

INSTANTIATE_TEST_SUITE_P(All, Truncation, testing::ValuesIn(findMacros()), testName);

} // namespace
