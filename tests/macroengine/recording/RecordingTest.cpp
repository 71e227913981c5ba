// Lines on their way from the host's commands to an output.

#include "macroengine/EngineFixture.h"
#include "system/platform/TestPlatform.h"

#include <fstream>
#include <sstream>

namespace {

/// Keeps the lines, and does what the test wants with each.
class Output : public MacroOutput {
public:
    Output() { DisableRefCount(); }
    int Record(char const* text) override {
        lines.emplace_back(text);
        if (onRecord)
            onRecord();
        return works ? 1 : 0;
    }

    Lines lines;
    std::function<void()> onRecord;
    bool works = true;
};

class RecordingTest : public EngineTest {
protected:
    ~RecordingTest() override { macro.StopRecording(); }

    static void record(const char* text, int id = 0) { MacroSupport::Record(text, id, 0); }

    Output output;
};

struct Gesture {
    const char* name;
    bool compression;
    std::vector<std::pair<const char*, int>> lines;
    Lines written;
};

class GestureTest : public RecordingTest, public testing::WithParamInterface<Gesture> {};

TEST_P(GestureTest, WritesItsFirstAndItsLastLine) {
    macro.StartRecording(&output);
    processor().SetCompressionMode(GetParam().compression);
    for (const auto& [text, id] : GetParam().lines)
        record(text, id);
    EXPECT_EQ(output.lines, GetParam().written);
}

INSTANTIATE_TEST_SUITE_P(
    All, GestureTest,
    testing::Values(
        Gesture{"Off", false, {{"a", 5}, {"b", 5}, {"c", 6}, {"d", 0}}, {"a", "b", "c", "d"}},
        Gesture{"Drag", true, {{"a", 5}, {"b", 5}, {"c", 5}, {"d", 6}}, {"a", "c", "d"}},
        Gesture{"LastIsHeldBack", true, {{"a", 5}, {"b", 5}}, {"a"}},
        Gesture{"PlainLineEndsADrag",
                true,
                {{"a", 5}, {"b", 5}, {"c", 0}, {"d", 0}, {"e", 5}},
                {"a", "b", "c", "d", "e"}},
        Gesture{"OfOneLineStandsTwice",
                true,
                {{"a", 5}, {"b", 6}, {"c", 0}},
                {"a", "a", "b", "b", "c"}},
        Gesture{
            "NullIsNoLine", true, {{"a", 5}, {nullptr, 6}, {"b", 5}, {"c", 0}}, {"a", "b", "c"}},
        Gesture{"TextIsWrittenAsItIs", false, {{"", 0}, {"%s %d\t", 0}}, {"", "%s %d\t"}}),
    [](const auto& each) { return each.param.name; });

TEST_F(RecordingTest, ANewRecordingTakesNothingOverFromTheLast) {
    macro.StartRecording(&output);
    processor().SetCompressionMode(true);
    record("a", 5);
    record("b", 5);
    macro.StopRecording();
    record("nobody listens", 5);
    Output second;
    macro.StartRecording(&second);
    record("c", 5);
    record("d", 0);
    macro.StopRecording();
    EXPECT_EQ(output.lines, Lines{"a"});
    EXPECT_EQ(second.lines, (Lines{"c", "c", "d"}));
    EXPECT_TRUE(processor().GetCompressionMode());
}

TEST_F(RecordingTest, IdsAndModes) {
    EXPECT_EQ(UI_Macro::GetCompressID(), 2);
    EXPECT_EQ(UI_Macro::GetCompressID(), 3);
    EXPECT_EQ(UI_Macro::GetRelativeMode(), 0);
    processor().SetRelativeMode(true);
    EXPECT_EQ(UI_Macro::GetRelativeMode(), 1);
    EXPECT_EQ(UI_Macro::InRecordMode(), 0);
    macro.StartRecording(&output);
    EXPECT_EQ(UI_Macro::InRecordMode(), 1);
    macro.Stop();
    EXPECT_EQ(UI_Macro::InRecordMode(), 0);
}

TEST_F(RecordingTest, SwitchesInsideARun) {
    log.On("Start", [&] { macro.StartRecording(&output); });
    log.On("Stop", [&] { macro.StopRecording(); });
    log.On("Say", [&](Args args) { log.Record(textOf(args[0]).c_str(), 0); });
    EXPECT_EQ(runText("Sub twice(n)\nLog.Say n\nLog.Start\nLog.Say n\nEnd Sub\n"
                      "For i = 1 To 2\ntwice i\nNext\nLog.Stop\nLog.Say 3\nLog.Add i"),
              Lines{"3"});
    EXPECT_EQ(output.lines, (Lines{"1", "2", "2"}));
}

TEST_F(RecordingTest, AMacroInsideAMacroIsRecordedByBoth) {
    Output inner;
    macro.StartRecording(&output);
    {
        UI_Macro nested(true);
        nested.StartRecording(&inner);
        record("both");
        nested.StopRecording();
        EXPECT_EQ(UI_Macro::InRecordMode(), 1) << "the outer one still records";
        record("outer");
    }
    record("outer again");
    EXPECT_EQ(inner.lines, Lines{"both"});
    EXPECT_EQ(output.lines, (Lines{"both", "outer", "outer again"}));
}

TEST_F(RecordingTest, AnOutputMaySwitchRecordingItself) {
    auto* counted = new Output;
    macro.StartRecording(counted);
    processor().SetCompressionMode(true);
    record("a", 5);
    record("b", 5);
    counted->onRecord = [&] { macro.StartRecording(&output); };
    record("c", 6);
    EXPECT_EQ(counted->lines, (Lines{"a", "b", "c"})) << "it was recording when the line came";
    record("d", 6);
    record("e", 0);
    EXPECT_EQ(output.lines, (Lines{"d", "d", "e"}));
    delete counted;
}

TEST_F(RecordingTest, AnOutputMayEndItsEngine) {
    auto own = std::make_unique<UI_Macro>(true);
    own->StartRecording(&output);
    output.onRecord = [&] { own.reset(); };
    record("a");
    record("b");
    EXPECT_EQ(output.lines, Lines{"a"});
    output.onRecord = nullptr;
    EXPECT_EQ(runText("Log.Add 1"), Lines{"1"});
}

TEST_F(RecordingTest, AnOutputThatFailsOrThrowsLosesOnlyThatLine) {
    macro.StartRecording(&output);
    output.works = false;
    record("refused");
    output.onRecord = [] { throw std::runtime_error("full"); };
    EXPECT_THROW(record("thrown"), std::runtime_error);
    output.onRecord = nullptr;
    output.works = true;
    record("kept");
    EXPECT_EQ(output.lines, (Lines{"refused", "thrown", "kept"}));
}

TEST_F(RecordingTest, ModalContextsNest) {
    macro.StartRecording(&output);
    MacroSupport& p = processor();
    p.PopModalContext();
    EXPECT_STREQ(p.GetModalContext(), "");
    p.PushModalContext("Options");
    p.PushModalContext("Options.Colour");
    EXPECT_STREQ(p.GetModalContext(), "Options.Colour");
    EXPECT_EQ(p.GetModalContextLevel(), 2);
    p.Record(p.GetModalContextIndent() + ".Value = 3", 0);
    p.PopModalContext();
    p.PopModalContext();
    p.PopModalContext();
    EXPECT_EQ(p.GetModalContextLevel(), 0);
    EXPECT_EQ(output.lines, (Lines{"withDlg Options", "  withDlg Options.Colour", "    .Value = 3",
                                   "  end withDlg", "end withDlg"}));
}

TEST_F(RecordingTest, ADialogEndsAGesture) {
    macro.StartRecording(&output);
    processor().SetCompressionMode(true);
    record("drag 1", 5);
    record("drag 2", 5);
    processor().PushModalContext("Options");
    EXPECT_EQ(output.lines, (Lines{"drag 1", "drag 2", "withDlg Options"}));
}

std::string contentOf(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

TEST(MacroOutputFileTest, EachLineIsInTheFileAtOnce) {
    const TestFolder folder;
    const std::string path = folder.Write("out.mcr", "what was there before\n");
    MacroOutputFile file(path.c_str());
    file.DisableRefCount();
    EXPECT_EQ(contentOf(path), "");
    EXPECT_EQ(file.Record("a = 1"), 1);
    EXPECT_EQ(contentOf(path), "a = 1\n");
    EXPECT_EQ(file.Record(""), 1);
    EXPECT_EQ(file.Record("b = 2"), 1);
    EXPECT_EQ(contentOf(path), "a = 1\n\nb = 2\n");
    file.Reset();
    EXPECT_EQ(file.Record("c"), 1);
    EXPECT_EQ(contentOf(path), "c\n= 1\n\nb = 2\n");
}

TEST(MacroOutputFileTest, WithoutAFileThereAreNoLines) {
    const TestFolder folder;
    const std::string missing = (folder.GetPath() / "no" / "such").string();
    const char* const names[] = {nullptr, "", missing.c_str(), folder.GetPath().c_str()};
    for (const char* name : names) {
        MacroOutputFile file(name);
        file.DisableRefCount();
        EXPECT_EQ(file.Record("a"), 0) << (name ? name : "null");
    }
}

TEST(MacroOutputFileTest, AFullDiskLosesOnlyTheLinesThatDidNotFit) {
    const TestFolder folder;
    const std::string path = (folder.GetPath() / "out.mcr").string();
    TestPlatform platform;
    MacroOutputFile file(path.c_str());
    file.DisableRefCount();
    EXPECT_EQ(file.Record("one"), 1);
    platform.writes.left = 0;
    EXPECT_EQ(file.Record("lost"), 0);
    EXPECT_EQ(file.Record("lost too"), 0);
    platform.writes.left = -1;
    EXPECT_EQ(file.Record("two"), 1);
    EXPECT_EQ(contentOf(path), "one\ntwo\n");
}

class NameListener : public SCC_EventNode<SYS_String> {
public:
    int OnNotification(int, SYS_String name) override {
        names.emplace_back(name.View());
        return 0;
    }

    Lines names;
};

TEST(MacroFileNameStorageTest, TellsTheNameOrThatThereIsNone) {
    MacroFileNameStorage& storage = MacroFileNameStorage::GetStorage();
    NameListener listener;
    storage.Subscribe(listener);
    storage.OnFileNameSetUp("a.mcr");
    storage.OnFileNameCanceled();
    EXPECT_STREQ(storage.GetFileName(), "a.mcr");
    storage.SetFileName("b.mcr");
    storage.OnFileNameSetUp(storage.GetFileName());
    EXPECT_EQ(listener.names, (Lines{"a.mcr", "", "b.mcr"}));

    storage.Unsubscribe(listener);
    storage.OnFileNameCanceled();
    EXPECT_EQ(listener.names.size(), 3u);
    SCC_Event<SYS_String> other;
    other.AddTail(listener);
    storage.Unsubscribe(listener);
    EXPECT_EQ(listener.GetRoot(), &other) << "it was not ours";
}

} // namespace
