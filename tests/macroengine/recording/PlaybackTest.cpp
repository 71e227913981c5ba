// Blocks of macro text that run while the host has a modal dialog open.

#include "macroengine/EngineFixture.h"

#include <memory>

namespace {

/// `Show` opens a dialog: it continues the macro under the dialog's name and notes the result.
class PlaybackTest : public EngineTest {
protected:
    PlaybackTest() {
        for (Recorder* each : {&options, &page}) {
            macro.Register(*each, nullptr);
            give(*each);
        }
        log.On("Open", [this](Args args) { return open(textOf(args[0]).c_str()); });
    }

    void give(Recorder& dialog) {
        const std::string name(dialog.GetName().View());
        dialog.On("Show", [this, name] { return open(name.c_str()); });
        dialog.On("Set", [this, name](Args args) { note(name + " " + textOf(args[0])); });
    }
    int open(const char* name) {
        const int result = UI_Macro::ContinuePlayback(name);
        note(std::string("closed ") + (name ? name : "null") + " " + std::to_string(result));
        return result;
    }
    void note(const std::string& line) { log.lines.push_back(line); }

    Recorder options{"Options"}, page{"Page"};
    AssertRecorder asserts;
};

struct Round {
    const char* name;
    const char* text;
    Lines lines;
};

class RoundTest : public PlaybackTest, public testing::WithParamInterface<Round> {};

TEST_P(RoundTest, RunsTheBlockOfTheDialog) {
    EXPECT_EQ(runText(GetParam().text), GetParam().lines);
    EXPECT_EQ(runText(GetParam().text, Feed::LineByLine), GetParam().lines);
    EXPECT_EQ(processor().GetExecutionMode(), MacroSupport::emFinished);
    EXPECT_EQ(UI_Macro::InPlaybackMode(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Matching, RoundTest,
    testing::Values(
        Round{"Once",
              "Options.Show\nwithDlg Options\n.Set 1\n.Set 2\nend withDlg\nLog.Add \"after\"",
              {"Options 1", "Options 2", "closed Options 3", "after"}},
        Round{"AsTheLastStatement",
              "Options.Show\nwithDlg Options\n.Set 1\nend withDlg",
              {"Options 1", "closed Options 3"}},
        Round{"TwiceForTwoDialogs",
              "Log.Add Options.Show() + Options.Show()\nwithDlg Options\n.Set 1\nend withDlg",
              {"Options 1", "closed Options 3", "Options 1", "closed Options 3", "6"}},
        Round{"AmongSeveral",
              "Page.Show\nwithDlg Options\n.Set 1\nend withDlg\n' a remark\n\n"
              "withDlg Page\n.Set 2\nend withDlg\nLog.Add 3",
              {"Page 2", "closed Page 3", "3"}},
        Round{"Nested",
              "Options.Show\nwithDlg Options\n.Set 1\nPage.Show\n  withDlg Page\n  .Set 2\n"
              "  end withDlg\n.Set 3\nend withDlg",
              {"Options 1", "Page 2", "closed Page 3", "Options 3", "closed Options 3"}},
        Round{"InALoop",
              "For i = 1 To 2\nOptions.Show\nwithDlg Options\n.Set i\nend withDlg\nNext\nLog.Add i",
              {"Options 1", "closed Options 3", "Options 2", "closed Options 3", "3"}},
        Round{"OfACondition",
              "If Options.Show() = 3 Then\nLog.Add \"then\"\nEnd If\n"
              "withDlg Options\n.Set 1\nend withDlg",
              {"Options 1", "closed Options 3", "then"}},
        Round{"BehindABranch",
              "If True Then\nOptions.Show\nElse\nwithDlg Options\n.Set 1\nend withDlg\nEnd If\n"
              "withDlg Options\n.Set 2\nend withDlg",
              {"Options 2", "closed Options 3"}},
        Round{"BehindACase",
              "Select Case 1\nCase 1\nOptions.Show\nCase 2\nwithDlg Options\n.Set 1\nend withDlg\n"
              "End Select\nwithDlg Options\n.Set 2\nend withDlg",
              {"Options 2", "closed Options 3"}},
        Round{"InAProcedure",
              "Sub edit(n)\nk = n * 2\nOptions.Show\nwithDlg Options\n.Set k\nn = 9\ntell n\n"
              "end withDlg\nEnd Sub\nSub tell(n)\nLog.Add n\nEnd Sub\nx = 4\nedit x\nLog.Add x",
              {"Options 8", "9", "closed Options 3", "9"}},
        Round{"OfAComputedObject",
              "Function pick()\nLog.Add \"pick\"\nSet pick = Options\nEnd Function\n"
              "Options.Show\nwithDlg pick()\n.Set 1\nend withDlg\nLog.Add 2",
              {"pick", "Options 1", "closed Options 3", "2"}},
        Round{"ThroughAVariable",
              "Set d = Options\nLog.Open \"d\"\nwithDlg Options\n.Set 1\nend withDlg",
              {"Options 1", "closed d 3"}}),
    [](const auto& each) { return each.param.name; });

INSTANTIATE_TEST_SUITE_P(
    NotMatching, RoundTest,
    testing::Values(
        Round{"NoBlock", "Options.Show\nLog.Add 1", {"closed Options 0", "1"}},
        Round{"NothingBehind", "Options.Show", {"closed Options 0"}},
        Round{"PlainWith",
              "Options.Show\nWith Options\n.Set 1\nEnd With",
              {"closed Options 0", "Options 1"}},
        Round{
            "OtherDialog", "Options.Show\nwithDlg Page\n.Set 1\nend withDlg", {"closed Options 0"}},
        Round{"StatementBetween",
              "Options.Show\nx = 1\nwithDlg Options\n.Set 1\nend withDlg\nLog.Add x",
              {"closed Options 0", "1"}},
        Round{"StatementBetweenBlocks",
              "Options.Show\nwithDlg Page\nx = 1\nend withDlg\nx = 2\nwithDlg Options\n.Set 1\n"
              "end withDlg",
              {"closed Options 0"}},
        Round{"BehindTheCallOfTheProcedure",
              "Sub s\nOptions.Show\nEnd Sub\ns\nwithDlg Options\n.Set 1\nend withDlg",
              {"closed Options 0"}},
        Round{"NeverEvaluatedByTheWalk",
              "withDlg Nobody.Knows(1 / 0)\nx = 1\nend withDlg\nLog.Add 1",
              {"1"}},
        Round{"NamesOfOtherThings",
              "Option Explicit\nDim n\nn = 5\nDim gone\nSet gone = Nothing\nSub proc\nEnd Sub\n"
              "Log.Open \"\"\nLog.Open \"n\"\nLog.Open \"gone\"\nLog.Open \"proc\"\n"
              "Log.Open \"Len\"\nLog.Open \"Nobody\"\nLog.Open \"Nothing\"\nLog.Open \"Null\"\n"
              "withDlg Options\n.Set 1\nend withDlg",
              {"closed  0", "closed n 0", "closed gone 0", "closed proc 0", "closed Len 0",
               "closed Nobody 0", "closed Nothing 0", "closed Null 0"}}),
    [](const auto& each) { return each.param.name; });

TEST_F(PlaybackTest, ANullNameMatchesNothing) {
    log.On("Open", [this] { open(nullptr); });
    EXPECT_EQ(runText("Log.Open\nwithDlg Options\nend withDlg"), Lines{"closed null 0"});
}

TEST_F(PlaybackTest, OutsideARunTheModeDecides) {
    EXPECT_EQ(UI_Macro::ContinuePlayback("Options"), 0) << "stopped";
    runText("x = 1");
    for (int mode = MacroSupport::emRun; mode <= MacroSupport::emEvalPure; ++mode) {
        processor().SetExecutionMode(static_cast<MacroSupport::ExecutionMode>(mode));
        const bool runs = mode == MacroSupport::emRun ||
                          (mode >= MacroSupport::emStepInto && mode <= MacroSupport::emStepOver);
        EXPECT_EQ(UI_Macro::ContinuePlayback("Options"), runs ? 2 : 0) << "mode " << mode;
    }
    processor().SetExecutionMode(MacroSupport::emFinished);
    EXPECT_EQ(runText("Log.Add 1"), Lines{"1"});
}

TEST_F(PlaybackTest, ADialogThatGoesAwayEndsItsBlock) {
    auto dialog = std::make_unique<Recorder>("Dialog");
    const auto renew = [&] {
        dialog = std::make_unique<Recorder>("Dialog");
        macro.Register(*dialog, nullptr);
        give(*dialog);
        dialog->On("Close", [&] { dialog.reset(); });
    };
    const struct {
        const char* name;
        const char* text;
        Lines lines;
    } cases[] = {
        {"plain",
         "Dialog.Show\nwithDlg Dialog\n.Set 1\n.Close\n.Set 2\nend withDlg\nLog.Add 3",
         {"Dialog 1", "closed Dialog 0", "3"}},
        {"in loops",
         "Dialog.Show\nwithDlg Dialog\nFor i = 1 To 3\nDo\n.Set i\nIf i = 2 Then .Close\nLoop "
         "Until "
         "True\nNext\nend withDlg\nLog.Add i",
         {"Dialog 1", "Dialog 2", "closed Dialog 0", "3"}},
        {"in a procedure",
         "Sub s\nDialog.Show\nwithDlg Dialog\n.Close\n.Set 1\nend withDlg\nLog.Add 2\nEnd Sub\n"
         "s\nLog.Add 3",
         {"closed Dialog 0", "2", "3"}},
        {"unused afterwards",
         "Dialog.Show\nwithDlg Dialog\n.Close\nLog.Add 1\nend withDlg",
         {"1", "closed Dialog 3"}},
        {"inside another, whose block goes on to its end",
         "Options.Show\nwithDlg Options\nDialog.Show\nwithDlg Dialog\n.Close\n.Set 1\nend withDlg\n"
         ".Set 2\nend withDlg",
         {"closed Dialog 0", "Options 2", "closed Options 3"}},
        {"under a plain With",
         "Dialog.Show\nwithDlg Dialog\nWith Dialog\n.Close\n.Set 1\nEnd With\n"
         "end withDlg",
         {"Error: Unknown error: "}},
    };
    for (const auto& each : cases) {
        renew();
        EXPECT_EQ(runText(each.text), each.lines) << each.name;
        renew();
        EXPECT_EQ(runText("Dialog.Show\nwithDlg Dialog\n.Set 1\nend withDlg"),
                  (Lines{"Dialog 1", "closed Dialog 3"}))
            << "after " << each.name;
    }
}

TEST_F(PlaybackTest, LookingForTheLostDialogDoesNotEndItsBlock) {
    auto dialog = std::make_unique<Recorder>("Dialog");
    macro.Register(*dialog, nullptr);
    give(*dialog);
    dialog->On("Close", [&] { dialog.reset(); });
    log.On("Look", [this](Args args) {
        note(errorOf([&] { macro.Eval(textSource(textOf(args[0])), true); }));
    });
    EXPECT_EQ(runText("Dialog.Show\nwithDlg Dialog\nLog.Look \".Set 1\"\n.Close\n"
                      "Log.Look \".Set 2\"\nLog.Look \"3 + .Width\"\nLog.Add 3\nend withDlg"),
              (Lines{"Dialog 1", "no error",
                     "Error: Unknown error: ", "Error: Unknown error: ", "3", "closed Dialog 3"}));
}

TEST_F(PlaybackTest, AnErrorInABlockPassesThroughTheDialog) {
    const char* const text = "x = 1\nOptions.Show\nwithDlg Options\n.Set x\nx = x.y\nend withDlg\n"
                             "Log.Add \"after \" & x";
    EXPECT_EQ(runText(text), (Lines{"Options 1", "Object required: '[number: 1]'"}));
    EXPECT_EQ(processor().GetLastErrorLine(), 4);
    EXPECT_EQ(processor().GetExecutionMode(), MacroSupport::emFinished);

    options.On("Show", [this] { note(errorOf([this] { open("Options"); })); });
    EXPECT_EQ(runText(text), (Lines{"Options 1", "Object required: '[number: 1]'", "after 1"}))
        << "a host that keeps the error to itself lets the macro go on";
    EXPECT_EQ(runText("Function f\nOptions.Show\nwithDlg Options\nf = 1\ng\nend withDlg\n"
                      "f = f + 1\nEnd Function\nSub g\nx = x.y\nEnd Sub\nLog.Add f()"),
              (Lines{"Object required: '[undefined]'", "2"}));
}

TEST_F(PlaybackTest, TheBlockItselfCannotBeLeftByExit) {
    EXPECT_EQ(runText("For i = 1 To 3\nOptions.Show\nwithDlg Options\nExit For\nend withDlg\nNext"),
              Lines{"Error: Illegal nesting: "});
    EXPECT_EQ(runText("Sub s\nOptions.Show\nwithDlg Options\nExit Sub\nend withDlg\nEnd Sub\ns"),
              Lines{"Error: Illegal nesting: "});
    EXPECT_EQ(
        runText("Options.Show\nwithDlg Options\nFor i = 1 To 3\nIf i = 2 Then Exit For\nNext\n"
                ".Set i\nend withDlg"),
        (Lines{"Options 2", "closed Options 3"}));
}

TEST_F(PlaybackTest, ADialogInsideItselfIsBoundedLikeAnyNesting) {
    EXPECT_EQ(runText("Sub s\nOptions.Show\nwithDlg Options\ns\nend withDlg\nEnd Sub\ns"),
              Lines{"Error: Illegal nesting: "});
    EXPECT_EQ(runText("Log.Add 1"), Lines{"1"});
}

TEST_F(PlaybackTest, AnExitCodeDoesNotEndTheBlock) {
    options.On("Quit", [](Args args) { UI_Macro::RequestExit(static_cast<int>(args[0])); });
    EXPECT_EQ(runText("Options.Show\nwithDlg Options\n.Quit 7\n.Set 1\nend withDlg\nLog.Add 2"),
              (Lines{"Options 1", "closed Options 3", "2"}));
    EXPECT_EQ(UI_Macro::GetReturnValue(), 7);
}

TEST_F(PlaybackTest, AStopEndsBlockAndMacro) {
    options.On("Halt", [this] { macro.Stop(); });
    EXPECT_EQ(runText("Options.Show\nwithDlg Options\n.Halt\n.Set 1\nend withDlg\nLog.Add 2"),
              Lines{"closed Options 3"});
    EXPECT_EQ(processor().GetExecutionMode(), MacroSupport::emStopped);
    EXPECT_EQ(runText("Options.Show\nwithDlg Options.Halt()\n.Set 1\nend withDlg\nLog.Add 2"),
              Lines{"closed Options 0"});
    EXPECT_EQ(runText("Log.Add 1"), Lines{"1"});
}

TEST_F(PlaybackTest, AHostCanStopAnEndlessSearchForTheBlock) {
    const char* const text = "Function pick()\nDo While True\nLoop\nEnd Function\n"
                             "Options.Show\nwithDlg pick()\n.Set 1\nend withDlg\nLog.Add 2";
    MacroHostHooks hooks;
    int calls = 0;
    hooks.statement = [&](long) {
        if (++calls == 10)
            macro.Stop();
    };
    MacroSupport::SetHostHooks(hooks);
    EXPECT_EQ(runText(text), Lines{"closed Options 0"});
    calls = 0;
    hooks.statement = [&](long) {
        if (++calls == 10)
            UI_Macro::OnError("too slow");
    };
    MacroSupport::SetHostHooks(hooks);
    EXPECT_EQ(runText(text), Lines{"too slow"});
    MacroSupport::SetHostHooks(MacroHostHooks());
    EXPECT_EQ(runText("Log.Add 1"), Lines{"1"});
}

/// Reports each of its commands as macro text, as a host does while it records.
class Reporting : public Recorder {
public:
    explicit Reporting(const char* name) : Recorder(name) {
        On("Set", [this](Args args) {
            report(".Set " + std::string(static_cast<SYS_String>(args[0]).View()));
        });
        On("Show", [this] {
            report(".Show");
            MacroSupport& processor = *MacroSupport::GetProcessor();
            processor.PushModalContext(GetName());
            const int result = UI_Macro::ContinuePlayback(GetName());
            processor.PopModalContext();
            return result;
        });
    }

private:
    void report(const std::string& member) {
        const MacroSupport& processor = *MacroSupport::GetProcessor();
        const bool open = processor.GetModalContext() == GetName();
        const std::string owner(open ? "" : GetName().View());
        Record((std::string(processor.GetModalContextIndent().View()) + owner + member).c_str(), 0);
    }
};

class Text : public MacroOutput {
public:
    Text() { DisableRefCount(); }
    int Record(char const* line) override {
        text = text + line + "\n";
        return 1;
    }

    std::string text;
};

TEST_F(EngineTest, WhatIsRecordedDuringPlaybackIsTheMacroItself) {
    Reporting options("Options"), page("Page");
    macro.Register(options, nullptr);
    macro.Register(page, nullptr);
    const std::string text = "Options.Set 1\n"
                             "Options.Show\n"
                             "withDlg Options\n"
                             "  .Set 2\n"
                             "  Page.Show\n"
                             "  withDlg Page\n"
                             "    .Set 3\n"
                             "    Options.Set 4\n"
                             "  end withDlg\n"
                             "  .Set 5\n"
                             "end withDlg\n"
                             "Page.Set 6\n";
    Text output;
    macro.StartRecording(&output);
    runText(text);
    macro.StopRecording();
    EXPECT_EQ(output.text, text);
}

} // namespace
