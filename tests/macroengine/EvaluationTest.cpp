// Evaluating texts in a paused macro, and reading and setting its variables.

#include "DebugFixture.h"

#include "interpreter/TreeDump.h"
#include "objects/Library.h"

#include <cmath>

namespace {

constexpr const char* kPaused = "Const tax = 20\n"      // 0
                                "total = 5\n"           // 1
                                "Dim grid(1, 1 To 2)\n" // 2
                                "grid(1, 2) = \"z\"\n"  // 3
                                "r = f(3)\n"            // 4
                                "Log.Add r & total\n"   // 5
                                "Function f(n)\n"       // 6
                                "  k = n * 2\n"         // 7
                                "  f = k\n"             // 8
                                "End Function\n"        // 9
                                "Function twice(n)\n"   // 10
                                "  q = n + n\n"         // 11
                                "  twice = q\n"         // 12
                                "End Function\n"        // 13
                                "Sub bad\n"             // 14
                                "  x = 1 \\ 0\n"        // 15
                                "End Sub\n";            // 16

class EvaluationTest : public DebugTest {
protected:
    std::string eval(std::string_view text, bool sideEffects = false, Feed feed = Feed::Whole) {
        try {
            return textOf(macro.Eval(textSource(text, feed), sideEffects));
        } catch (const MacroException& error) {
            const std::string message(error.GetText().View());
            return message.substr(0, message.find('\n'));
        }
    }
    /// Runs `action` while the text stands before that line, and gives what the macro has added.
    Lines pausedAt(long line, const std::function<void()>& action,
                   std::string_view text = kPaused) {
        const auto source = debug(text, {line});
        bool paused = false;
        source->onPause = [&] {
            if (!std::exchange(paused, true))
                action();
        };
        const Lines output = runSource(source);
        EXPECT_TRUE(paused);
        return output;
    }
    std::string list(int frame) {
        std::string text;
        for (const MacroVariableInfo& info : macro.GetVariables(frame))
            text += std::string(info.name.View()) + (info.isConstant ? "! " : " ") +
                    std::string(info.description.View()) + (info.hasParts ? " +\n" : "\n");
        return text;
    }
    static std::string parts(const UI_MacroVariant& value, int first = 0, int count = 100) {
        std::string text;
        for (const MacroPartInfo& part : ListMacroParts(value, first, count))
            text += std::string(part.name.View()) + " " + std::string(part.description.View()) +
                    (part.hasParts ? " +\n" : "\n");
        return text;
    }
};

} // namespace

TEST_F(EvaluationTest, ATextIsReadAsAnExpressionOrAsStatements) {
    const struct {
        const char* text;
        const char* looking;  // without side effects
        const char* changing; // with them, in this order
    } cases[] = {
        {"n + 1", "4", "4"},
        {"k", "6", "6"},
        {"k - 1", "5", "5"},
        {"total", "5", "5"},
        {"tax * 2", "40", "40"},
        {"grid(1, 2)", "z", "z"},
        {"total = 5", "True", ""},
        {"total = 7", "False", ""},
        {"total", "5", "7"},
        {"tax = 1", "False", "Illegal assignment: 'tax'"},
        {"twice(k)", "Error: Unknown error: ", "12"},
        {"twice k", "Error: Unknown error: ", "12"},
        {"f(1) + twice(n)", "Error: Unknown error: ", "8"},
        {"Len(\"abc\")", "3", "3"},
        {"Rnd", "Error: Unknown error: ", nullptr},
        {"MsgBox \"x\"", "Error: Unknown error: ", nullptr},
        {"nowhere", "Variable is undefined : 'nowhere'", "Variable is undefined : 'nowhere'"},
        {"nowhere = 1", "Variable is undefined : 'nowhere'", "Variable is undefined : 'nowhere'"},
        {"", "", ""},
        {"' nothing but a comment", "", ""},
        {"1 +", "Syntax error: ", "Syntax error: "},
        {"For i = 1 To 2", "Syntax error: ", "Syntax error: "},
        {"Option Explicit", "Syntax error: ", "Syntax error: "},
        {"Sub s", "Syntax error: ", "Syntax error: "},
        {"k = 1 : k = k + 1", "Error: Unknown error: ", ""},
        {"k", "6", "2"},
        {"For Each j In Array(1, 2)\nk = k + j\nNext",
         "Error: Unknown error: ", "Variable is undefined : 'j'"},
        {"Dim j\nFor Each j In Array(1, 2)\nk = k + j\nNext", "Error: Unknown error: ", ""},
        {"ReDim n(3)", "Error: Unknown error: ", nullptr},
        {"Const c = 1", "Error: Unknown error: ", ""},
        {"k & j & c", "Variable is undefined : 'j'", "521"},
        {"Nothing Is Nothing", "True", "True"},
        {"WScript.Arguments.count >= 0", "Error: Unknown error: ", "True"},
        {"Log.Add 4", "Error: Unknown error: ", ""},
    };
    for (const Feed feed : {Feed::Whole, Feed::LineByLine}) {
        pausedAt(8, [&] {
            for (const auto& row : cases)
                EXPECT_EQ(eval(row.text, false, feed), row.looking) << row.text;
            for (const auto& row : cases)
                if (row.changing) {
                    EXPECT_EQ(eval(row.text, true, feed), row.changing) << row.text;
                }
        });
    }
}

TEST_F(EvaluationTest, ResultsAreCopiesOfAnyKind) {
    Recorder box("Box");
    macro.Register(box, "Box");
    pausedAt(8, [&] {
        const UI_MacroVariant object = macro.Eval(textSource("Box"), false);
        EXPECT_EQ(object.getBody(), &box);
        const UI_MacroVariant array = macro.Eval(textSource("grid"), false);
        eval("grid(1, 2) = 8", true);
        EXPECT_EQ(parts(array, 3), "(1, 2) [string: \"z\"]\n");
        EXPECT_EQ(eval("grid(1, 2)"), "8");
        const UI_MacroVariant null = macro.Eval(textSource("Null"), false);
        EXPECT_EQ(null.GetType(), vvtReference);
        EXPECT_EQ(null.getRefVal(), nullptr);
    });
}

TEST_F(EvaluationTest, ThePausedMacroIsLeftAsItWas) {
    const TestFolder folder;
    const std::string file = folder.Write("out.txt", "");
    const std::string text = "Open \"" + file +
                             "\" For Output As 1\n"
                             "x = 1\n"
                             "Print #1, \"kept\"\n"
                             "Close 1\n"
                             "Log.Add x\n"
                             "Sub deep(n)\n"
                             "  With Log\n"
                             "    If n = 0 Then x = 1 \\ 0\n"
                             "    deep n - 1\n"
                             "  End With\n"
                             "End Sub\n";
    const Lines output = pausedAt(
        2,
        [&] {
            auto& parser = static_cast<MacroParser&>(processor());
            const ParserTree* const tree = &parser.GetTree();
            const auto source = SCL_Pointer<MacroSource>(processor().GetSource());
            const ParserTree::Step step = processor().Current();
            std::string before;
            DumpTree(parser.GetTree(), before);
            for (const bool sideEffects : {false, true}) {
                for (const char* attempt :
                     {"x", "deep 5", "x = 1 \\ 0", "1 +", "x = 9\nDim fresh, other(", "deep(0) + 1",
                      "With Log\n.Add 3\n1 \\ 0\nEnd With"}) {
                    eval(attempt, sideEffects);
                    EXPECT_EQ(&parser.GetTree(), tree) << attempt;
                    EXPECT_EQ(processor().GetSource(), source.Get());
                    EXPECT_EQ(processor().Current().node, step.node);
                    EXPECT_EQ(processor().Current().ascending, step.ascending);
                    EXPECT_EQ(processor().GetExecutionMode(), Processor::emPaused);
                    EXPECT_EQ(macro.GetFramesCount(), 1);
                    EXPECT_EQ(macro.GetPosition(0), 2);
                    EXPECT_EQ(source->GetNextPosition(), 2);
                    EXPECT_EQ(processor().InPlaybackMode(), 1);
                }
            }
            std::string after;
            DumpTree(parser.GetTree(), after);
            EXPECT_EQ(after, before);
            EXPECT_EQ(list(0), "x [number: 1]\n"); // nothing of a text that was refused
            EXPECT_EQ(processor().getOptions().explicitDeclarations, 0);
        },
        text);
    EXPECT_EQ(output, (Lines{"1"}));
    std::ifstream written(file);
    std::string line;
    std::getline(written, line);
    EXPECT_EQ(line, "kept\r");
}

TEST_F(EvaluationTest, SuccessClearsTheLastErrorAndFailureTellsTheExpression) {
    pausedAt(8, [&] {
        EXPECT_EQ(eval("bad", true), "Error: Unknown error: ");
        EXPECT_EQ(processor().GetLastErrorCode(), errRuntime);
        EXPECT_EQ(processor().GetLastErrorLine(), 15);
        EXPECT_EQ(eval("1 + * 2", true), "Syntax error: ");
        EXPECT_EQ(processor().GetLastErrorLine(), 0);
        EXPECT_EQ(eval("1 + 2", true), "3");
        EXPECT_EQ(processor().GetLastErrorCode(), errMessage);
        EXPECT_TRUE(processor().GetLastErrorText().IsEmpty());
    });
}

TEST_F(EvaluationTest, EvaluationsNestAndHaveALimit) {
    log.On("Deeper", [&](Args args) {
        const int depth = static_cast<int>(args[0]);
        return UI_MacroVariant(
            macro.Eval(textSource("Log.Deeper(" + std::to_string(depth + 1) + ") + 0"), true));
    });
    log.On("Value", [&] { return UI_MacroVariant(macro.Eval(textSource("twice(n)"), true)); });
    log.On("Step", [&] { processor().SetExecutionMode(Processor::emStepInto); });
    log.On("Run", [&] { return SYS_String(errorOf([&] { execute(textSource("x = 1")); })); });
    const Lines output = pausedAt(8, [&] {
        EXPECT_EQ(eval("Log.Value() + f(10) + Log.Value()", true), "32");
        EXPECT_EQ(eval("Log.Deeper(0)", true), "Error: Illegal nesting: ");
        EXPECT_EQ(eval("Log.Run()", true), "Error: Illegal nesting: ");
        EXPECT_EQ(eval("twice(1)\nLog.Step\nk = twice(2)", true), "2");
        EXPECT_EQ(eval("k"), "4");
        EXPECT_EQ(processor().GetExecutionMode(), Processor::emPaused);
    });
    EXPECT_EQ(output, (Lines{"45"}));
}

TEST_F(EvaluationTest, AStopInsideHoldsAndExceptionsPass) {
    log.On("Stop", [&] { macro.Stop(); });
    log.On("Quit", [&] { throw MacroStopException(); });
    log.On("Throw", [&] { throw std::runtime_error("host"); });
    Lines output = pausedAt(8, [&] {
        EXPECT_THROW(macro.Eval(textSource("Log.Throw"), true), std::runtime_error);
        EXPECT_THROW(macro.Eval(textSource("Log.Quit"), true), MacroStopException);
        EXPECT_EQ(processor().GetExecutionMode(), Processor::emPaused);
        EXPECT_EQ(eval("k"), "6");
    });
    EXPECT_EQ(output, (Lines{"65"}));
    output = pausedAt(8, [&] {
        EXPECT_TRUE(macro.Eval(textSource("Log.Stop : k = 99"), true).IsEmpty());
        EXPECT_EQ(processor().GetExecutionMode(), Processor::emStopped);
        EXPECT_EQ(macro.GetFramesCount(), 2);
        EXPECT_EQ(list(0), "f [undefined]\nn [number: 3]\nk [number: 6]\n");
    });
    EXPECT_EQ(output, (Lines{}));
    EXPECT_EQ(processor().GetExecutionMode(), Processor::emStopped);
    EXPECT_EQ(macro.GetFramesCount(), 0);
    EXPECT_EQ(processor().GetSource(), nullptr);
}

TEST_F(EvaluationTest, WorksBeforeAfterAndWithoutARun) {
    EXPECT_EQ(eval("1 + 1"), "2");
    EXPECT_EQ(eval("x"), "Variable is undefined : 'x'");
    EXPECT_EQ(runText("x = 4\nFunction f(n)\nf = n * x\nEnd Function\n"), Lines{});
    EXPECT_EQ(eval("x"), "4");
    EXPECT_EQ(eval("f(2)", true), "8");
    EXPECT_EQ(processor().GetExecutionMode(), Processor::emFinished);
    macro.Stop();
    EXPECT_EQ(eval("2 * 3"), "6"); // makes the bottom frame
    EXPECT_EQ(macro.Eval(nullptr, true).IsEmpty(), true);
    log.On("Stop", [&] { macro.Stop(); });
    EXPECT_EQ(eval("Log.Stop", true), "");
    EXPECT_EQ(processor().GetExecutionMode(), Processor::emStopped);
}

TEST_F(EvaluationTest, VariablesAreListedReadAndSet) {
    Recorder box("Box");
    macro.Register(box, "Box");
    const Lines output = pausedAt(8, [&] {
        EXPECT_EQ(list(0), "f [undefined]\nn [number: 3]\nk [number: 6]\n");
        EXPECT_EQ(list(1), "grid [array: dim(2), bounds(1,2)] +\n"
                           "tax! [number: 20]\ntotal [number: 5]\nr [undefined]\n");
        EXPECT_EQ(list(2) + list(-1), "");

        UI_MacroVariant value;
        EXPECT_TRUE(macro.GetVariable(0, "TOTAL", value));
        EXPECT_EQ(textOf(value), "5");
        EXPECT_FALSE(macro.GetVariable(1, "k", value));
        EXPECT_FALSE(macro.GetVariable(0, "nowhere", value));
        EXPECT_TRUE(macro.GetVariable(0, "grid", value));
        EXPECT_EQ(CountMacroParts(value), 4);
        EXPECT_EQ(parts(value), "(0, 1) [undefined]\n(1, 1) [undefined]\n"
                                "(0, 2) [undefined]\n(1, 2) [string: \"z\"]\n");
        EXPECT_EQ(parts(value, 3, 1), "(1, 2) [string: \"z\"]\n");
        EXPECT_EQ(parts(value, 4), "");

        EXPECT_TRUE(macro.SetVariable(0, "k", 40));
        EXPECT_TRUE(macro.SetVariable(0, "total", "t"));
        EXPECT_FALSE(macro.SetVariable(0, "tax", 1));
        EXPECT_FALSE(macro.SetVariable(0, "Empty", 1));
        EXPECT_FALSE(macro.SetVariable(0, "fresh", 1));
        EXPECT_EQ(errorOf([&] { macro.SetVariable(0, "grid", 1); }),
                  "Error: Can not assign to an array: ");
        EXPECT_TRUE(macro.SetVariable(0, "n", UI_MacroVariant(&box)));
        EXPECT_EQ(macro.Eval(textSource("n"), false).getBody(), &box);
    });
    EXPECT_EQ(output, (Lines{"40t"}));
}

TEST_F(EvaluationTest, AListedArrayDoesNotCutAReference) {
    const auto source = debug("Dim a(2)\n"
                              "inc a(1)\n"
                              "Log.Add a(1)\n"
                              "Sub inc(x)\n"
                              "  x = x + 5\n"
                              "End Sub\n",
                              {4});
    UI_MacroVariant kept;
    source->onPause = [&] { EXPECT_TRUE(macro.GetVariable(0, "a", kept)); };
    EXPECT_EQ(runSource(source), (Lines{"5"}));
    EXPECT_EQ(parts(kept), "(0) [undefined]\n(1) [undefined]\n(2) [undefined]\n");
}

TEST_F(EvaluationTest, ObjectsAreOpenedThroughTheirClass) {
    Book book("Ulysses");
    Atlas atlas("World");
    atlas.next = &book;
    macro.Register(atlas, "Atlas");
    pausedAt(8, [&] {
        eval("k = 0 : Set k = Atlas", true);
        EXPECT_EQ(list(0), "f [undefined]\nn [number: 3]\nk Atlas +\n");
        UI_MacroVariant value;
        EXPECT_TRUE(macro.GetVariable(0, "k", value));
        EXPECT_EQ(CountMacroParts(value), 5);
        EXPECT_EQ(parts(value, 0, 1) + parts(value, 3), "Next Book +\n"
                                                        "Title [string: \"World\"]\n"
                                                        "MacroName [string: \"Book\"]\n");
        const auto secret = ListMacroParts(value, 1, 1);
        ASSERT_EQ(secret.size(), 1u);
        EXPECT_TRUE(secret[0].hasFailed) << secret[0].description.c_str();
        const auto next = ListMacroParts(value, 0, 1);
        EXPECT_EQ(parts(next[0].value), "Title [string: \"Ulysses\"]\nPages [number: 120]\n"
                                        "MacroName [string: \"Book\"]\n");
    });
}
