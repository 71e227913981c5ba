// What a host may do from the calls that begin or end its macros: the reset of its objects and
// sources, and the making of the source of an executed script.

#include "EngineFixture.h"

#include <memory>
#include <optional>

namespace {

/// Runs an action of the test at each reset, and gives executed scripts their text.
class TurningSource : public MemorySource {
public:
    using MemorySource::MemorySource;

    void Reset() override {
        MemorySource::Reset();
        if (onReset)
            onReset();
    }
    MacroSource* Clone(char const*) override {
        if (onClone)
            onClone();
        return new MemorySource("x = 1\n");
    }

    std::function<void()> onReset;
    std::function<void()> onClone;
};

class ResettableObject : public MacroEval {
public:
    ResettableObject() : MacroEval("Turner") {}
    void OnParserReset(MacroSupport& processor) override {
        MacroEval::OnParserReset(processor);
        if (onReset)
            std::exchange(onReset, nullptr)();
    }

    std::function<void()> onReset;
};

class ResetCallbacks : public testing::Test {
protected:
    ResetCallbacks() { MacroEngineDllInitialize(); }
    ~ResetCallbacks() override {
        inner.reset();
        MacroEngineDllTerminate();
    }

    AssertRecorder asserts;
    std::unique_ptr<UI_Macro> inner = std::make_unique<UI_Macro>(true);
};

} // namespace

TEST_F(ResetCallbacks, AScriptsSourceMayEndTheRun) {
    const SCL_Pointer<TurningSource> source =
        new TurningSource("WScript.Execute \"/etc/passwd\"\n");
    source->onClone = [&] { inner->Stop(); };
    EXPECT_TRUE(inner->Execute(source, "", nullptr, 0).IsEmpty());
    EXPECT_EQ(MacroSupport::GetProcessor()->GetExecutionMode(), MacroSupport::emStopped);
    source->onClone = [&] { inner.reset(); };
    EXPECT_TRUE(inner->Execute(source, "", nullptr, 0).IsEmpty());
    EXPECT_EQ(MacroSupport::GetProcessor(), nullptr);
    EXPECT_EQ(asserts.Take().size(), 1u) << "the end of a running engine";
}

TEST_F(ResetCallbacks, AnObjectMayEndTheEngineThatBeginsARun) {
    ResettableObject object;
    inner->Register(object, nullptr);
    object.onReset = [&] { inner.reset(); };
    const SCL_Pointer<TurningSource> source = new TurningSource("x = 1\n");
    EXPECT_TRUE(inner->Execute(source, "", nullptr, 0).IsEmpty());
    EXPECT_EQ(MacroSupport::GetProcessor(), nullptr);
    EXPECT_EQ(asserts.Take().size(), 1u);
}

TEST_F(ResetCallbacks, ASourceMayEndTheEngineThatLetsItGo) {
    const std::function<void(UI_Macro&)> operations[] = {
        [](UI_Macro& macro) { macro.Stop(); },
        [](UI_Macro& macro) { macro.StartRecording(nullptr); },
        [](UI_Macro& macro) { macro.StopRecording(); },
        [](UI_Macro& macro) { macro.OpenMacroFile("none.mcr"); },
    };
    for (const auto& operation : operations) {
        inner = std::make_unique<UI_Macro>(true);
        const SCL_Pointer<TurningSource> source = new TurningSource("x = 1\n");
        inner->Execute(source, "", nullptr, 0);
        bool isReset = false;
        source->onReset = [&] {
            isReset = true;
            inner.reset();
        };
        UI_Macro& macro = *inner;
        operation(macro);
        source->onReset = nullptr;
        EXPECT_EQ(MacroSupport::GetProcessor() == nullptr, isReset);
        EXPECT_EQ(asserts.Take().size(), isReset ? 1u : 0u);
    }
}
