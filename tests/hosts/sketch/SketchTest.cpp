// The command line of sketch: what it draws, records and plays, and what it refuses.

#include "RunProgram.h"
#include "TestPaths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <random>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

const fs::path kExamples = fs::path(TEST_PROJECT_DIR) / "examples" / "sketch";

std::string slurp(const fs::path& path) { return ReadWholeFile(path.string()); }

class Sketch : public testing::Test {
protected:
    void SetUp() override {
        static std::atomic<int> number = 0;
        m_Folder = fs::temp_directory_path() /
                   ("sketch-test-" + std::to_string(getpid()) + "-" + std::to_string(++number));
        fs::create_directories(m_Folder);
    }
    void TearDown() override { fs::remove_all(m_Folder); }

    std::string path(const std::string& name) { return (m_Folder / name).string(); }

    std::string write(const std::string& name, const std::string& text) {
        std::ofstream(path(name), std::ios::binary) << text;
        return path(name);
    }

    static ProgramResult sketch(std::vector<std::string> arguments, const std::string& text = {}) {
        arguments.insert(arguments.begin(), TEST_BINARY_DIR "/sketch");
        ProgramInput input;
        input.text = text;
        return RunProgram(arguments, input);
    }

    ProgramResult play(const std::string& macro) {
        return sketch({"play", write("macro.mcr", macro)});
    }

    /// What the macro leaves in the title of the page.
    std::string titleAfter(const std::string& macro) {
        const ProgramResult result = play(macro);
        EXPECT_EQ(result.err, "") << macro;
        const std::size_t begin = result.out.find("<title>") + 7;
        return result.out.substr(begin, result.out.find("</title>") - begin);
    }

    struct Recording {
        ProgramResult result;
        std::string macro;
        std::string svg;
    };

    Recording record(const std::string& gestures, const char* command = "record") {
        std::vector<std::string> arguments = {command, "--macro", path("recorded.mcr"), "--svg",
                                              path("recorded.svg")};
        if (arguments[0] == "record")
            arguments.push_back("-");
        Recording recording{sketch(arguments, gestures), "", ""};
        recording.macro = slurp(path("recorded.mcr"));
        recording.svg = slurp(path("recorded.svg"));
        return recording;
    }

    /// What has been recorded draws the same picture from an empty document.
    void expectSamePicture(const Recording& recording, const std::string& what) {
        const ProgramResult played = play(recording.macro);
        EXPECT_EQ(played.err, "") << what << recording.macro;
        EXPECT_EQ(played.status, 0);
        EXPECT_EQ(played.out, recording.svg) << what << recording.macro;
    }

    fs::path m_Folder;
};

// --- examples --------------------------------------------------------------------------------

TEST_F(Sketch, ExamplesDrawTheirPictures) {
    int macros = 0;
    int scripts = 0;
    for (const auto& entry : fs::directory_iterator(kExamples)) {
        fs::path file = entry.path();
        const std::string extension = file.extension().string();
        if (extension == ".mcr") {
            ++macros;
            const ProgramResult played = sketch({"play", file.string()});
            EXPECT_EQ(played.err, "");
            EXPECT_EQ(played.out, slurp(file.replace_extension(".svg"))) << file;
        } else if (extension == ".gestures") {
            ++scripts;
            const Recording recording = record(slurp(file));
            EXPECT_EQ(recording.result.err, "");
            EXPECT_EQ(recording.result.status, 0);
            EXPECT_EQ(recording.macro, slurp(file.replace_extension(".mcr"))) << file;
            EXPECT_EQ(recording.svg, slurp(file.replace_extension(".svg"))) << file;
        }
    }
    EXPECT_EQ(macros, 5);
    EXPECT_EQ(scripts, 2);
}

// --- objects ---------------------------------------------------------------------------------

TEST_F(Sketch, ObjectsTellWhatTheyAre) {
    const std::string shapes = "Set d = Document.Shapes\n"
                               "Set c = d.AddCircle(10, 20.005, 5)\n"
                               "d.AddLine 1, 2, -3, 4\n"
                               "d.AddText 5, 6, \"five\", 20\n"
                               "Options.Title = ";
    const std::pair<const char*, const char*> cases[] = {
        {"d.Count & d(0).Name & d(\"LINE1\").Kind & d.Item(2).Text", "3Circle1Linefive"},
        {"c.X & \" \" & c.Y & \" \" & c.Radius", "10 20.01 5"},
        {"d(1).Width & \" \" & d(1).Height", "-4 2"},
        {"Document.X & \" \" & App.Document.Y", "5 6"},
        {"TypeName(Document.Stroke) & Document.Fill & Document.LayerVisible(\"Base\")",
         "Integer-1True"},
        {"Document.Selected & Document.Pick(10, 20) & Document.Pick(90, 90) & Document.Selected",
         "1TrueFalse0"},
        {"Document.Undo & Document.Undo & Document.Undo & Document.Undo & d.Count",
         "TrueTrueTrueFalse0"},
        {"Document.Redo & Document.Undo & Document.Redo & d.Count", "FalseTrueTrue3"},
        {"c.Move(1, 2).X & App.Name", "11Sketch"},
    };
    for (const auto& [expression, expected] : cases)
        EXPECT_EQ(titleAfter(shapes + expression + "\n"), expected) << expression;
}

TEST_F(Sketch, ForEachVisitsTheShapesThatWereThere) {
    EXPECT_EQ(titleAfter("For i = 1 To 3\nDocument.Shapes.AddCircle i, 0, 1\nNext\n"
                         "For Each s In Document.Shapes\n"
                         "    s.X = s.X * 2\n"
                         "    s.Stroke = vbColorRed\n"
                         "    seen = seen & s.Name & \":\" & s.Move(1, 0).X & \" \"\n"
                         "    If s.X = 5 Then s.Delete\n"
                         "    Document.Shapes.AddLine 0, 0, 1, 1\n"
                         "Next\n"
                         "Options.Title = seen & Document.Shapes.Count & Document.Shapes(1).X\n"),
              "Circle1:3 Circle2:5 Circle3:7 57");
}

TEST_F(Sketch, RefusalsNameTheReasonAndTheLine) {
    const std::string circle = "Set c = Document.Shapes.AddCircle(0, 0, 1)\n";
    const std::pair<std::string, const char*> cases[] = {
        {"\nDocument.Shapes.AddLine 1, 2, 3", "2: Error: Incorrect function argument(s): AddLine"},
        {"Document.Shapes.AddLine 1, 2, 3, \"x\"", "1: y2 must be a number"},
        {"Document.Shapes.AddLine 1, , 3, 4", "1: y1 must be a number"},
        {"Document.Shapes.AddLine 1, 2, 3, 1e7", "1: y2 must be between -1000000 and 1000000"},
        {"Document.Shapes.AddCircle 0, 0, 0.001", "1: radius must be above 0"},
        {"Document.Shapes(0).X = 1", "1: There are no shapes"},
        {circle + "x = Document.Shapes(1).X",
         "2: The index of a shape must be a whole number from 0 to 0"},
        {"Document.Select \"Line1\"", "1: There is no shape \"Line1\""},
        {circle + "c.Width = 3", "2: A shape of kind Circle has no width"},
        {circle + "c.Kind = 3", "2: Object does not support this property or method"},
        {circle + "c.Foo = 3", "2: Error: Member not found: Foo"},
        {circle + "For Each s In Document.Shapes\ns.Foo = 3\nNext",
         "3: Error: Member not found: Foo"},
        {circle + "For Each s In Document.Shapes\ns.Text = 3\nNext",
         "3: A shape of kind Circle has no text"},
        {circle + "c.Layer = \"Attic\"", "2: There is no layer \"Attic\""},
        {circle + circle + "c.Name = \"CIRCLE1\"", "3: There is a shape \"CIRCLE1\" already"},
        {circle + "c.Delete\nc.X = 1", "3: The shape has been deleted"},
        {"For Each s In Document\nNext", "1: Object expected"},
        {"Document.Stroke = \"red\"", "1: Stroke must be a colour, such as vbColorRed or "
                                      "Rgb(255, 0, 0), or vbNoColor"},
        {"Document.Move 1, 2", "1: Nothing is selected"},
        {"Document.DragTo 1, 2", "1: Nothing is being dragged"},
        {"Document.BeginDrag 1, 2", "1: There is no shape at 1, 2"},
        {"Options.Grid = 0.5", "1: Grid must be between 1 and 10000"},
        {"Options.OK", "1: The dialog Options is not open"},
        {"App.ShowText", "1: Select one text first"},
        {"If True Then\n", "2: Syntax error"},
    };
    for (const auto& [macro, expected] : cases) {
        const ProgramResult result = play(macro);
        EXPECT_EQ(result.status, 1) << macro;
        EXPECT_EQ(result.out, "");
        EXPECT_TRUE(result.err.starts_with(path("macro.mcr") + ":" + expected)) << result.err;
    }
}

TEST_F(Sketch, TextThatXmlCannotHoldIsReplacedAndTheRestEscaped) {
    const ProgramResult result =
        play("Document.Shapes.AddText 1, 2, \"<a> & \"\"b\"\" \" & Chr(195) & Chr(164) & Chr(195) "
             "& \"!\" & Chr(7) & Chr(10) & \"second\"\n");
    EXPECT_NE(result.out.find(">&lt;a&gt; &amp; &quot;b&quot; \xC3\xA4\xEF\xBF\xBD!\xEF\xBF\xBD<"),
              std::string::npos)
        << result.out;
    EXPECT_NE(result.out.find("y=\"17\" "), std::string::npos) << result.out; // the second line
}

TEST_F(Sketch, QuitEndsTheMacroAndGivesTheStatus) {
    ProgramResult result = play("Options.Title = \"kept\"\nApp.Quit 7\nOptions.Title = \"lost\"\n");
    EXPECT_EQ(result.status, 7);
    EXPECT_NE(result.out.find("<title>kept<"), std::string::npos);
    result = play("App.ShowOptions\nwithDlg Options\n.Title = \"kept\"\n.OK\nApp.Quit 5\nend "
                  "withDlg\nOptions.Title = \"lost\"\n");
    EXPECT_EQ(result.status, 5);
    EXPECT_NE(result.out.find("<title>kept<"), std::string::npos);
}

// --- dialogs in macros -----------------------------------------------------------------------

TEST_F(Sketch, MacrosWorkDialogsByTheirBlocks) {
    const std::string text = "Document.Shapes.AddText 1, 2, \"old\"\n";
    const std::pair<std::string, const char*> cases[] = {
        {"App.ShowOptions\nwithDlg Options\n.Title = \"new\"\n.OK\nend withDlg\n", "new"},
        {"App.ShowOptions\nwithDlg Options\n.Title = \"new\"\n.Cancel\nend withDlg\n", "Untitled"},
        {"App.ShowOptions\nwithDlg Options\n.Title = \"left open\"\nend withDlg\n", "Untitled"},
        {"App.ShowOptions\n", "Untitled"},
        // Of the blocks behind the statement, the one for the dialog runs.
        {"App.ShowOptions\nwithDlg Document\n.SelectNone\nend withDlg\n"
         "withDlg Options\n.Title = \"second\"\n.OK\nend withDlg\n",
         "second"},
        {"App.ShowOptions\nx = 1\nwithDlg Options\n.Title = \"too late\"\n.OK\nend withDlg\n",
         "Untitled"},
        {"withDlg Options\n.Title = \"nobody asked\"\n.OK\nend withDlg\n", "Untitled"},
        {"For i = 1 To 2\nApp.ShowOptions\nwithDlg Options\n.Title = .Title & i\n.OK\nend withDlg\n"
         "Next\n",
         "Untitled12"},
        {"Sub ask(t)\nApp.ShowOptions\nwithDlg Options\n.Title = t\n.OK\nend withDlg\nEnd Sub\n"
         "ask \"from a procedure\"\n",
         "from a procedure"},
        {text + "App.ShowText\nwithDlg TextDialog\n.ChooseFont\nwithDlg FontDialog\n.Size = 9\n"
                ".OK\nend withDlg\n.ChooseColor\nwithDlg ColorDialog\n.Blue = 255\n.OK\nend "
                "withDlg\n.Text = .Text & \"er\"\n.OK\nend withDlg\n"
                "Options.Title = Document.Shapes(0).Text & Hex(Document.Shapes(0).Stroke)\n",
         "olderFF0000"},
    };
    for (const auto& [macro, expected] : cases)
        EXPECT_EQ(titleAfter(macro), expected) << macro;

    const std::pair<std::string, const char*> faults[] = {
        {"App.ShowOptions\nwithDlg Options\n.Width = 0\nend withDlg\n", ":3: Width must be"},
        {"App.ShowOptions\nwithDlg Options\n.OK\n.OK\nend withDlg\n", ":4: The dialog Options is"},
        {"App.ShowOptions\nwithDlg Options\nApp.ShowOptions\nend withDlg\n", ":3: The dialog "},
        {text + "App.ShowText\nwithDlg TextDialog\nDocument.Shapes(0).Delete\n.OK\nend withDlg\n",
         ":2: The text has been deleted"},
        {text + "App.ShowText\nwithDlg TextDialog\n.OK\nend withDlg\nTextDialog.OK\n", ":6: "},
    };
    for (const auto& [macro, expected] : faults) {
        const ProgramResult result = play(macro);
        EXPECT_EQ(result.status, 1) << macro;
        EXPECT_NE(result.err.find(expected), std::string::npos) << result.err;
    }
}

// --- recording -------------------------------------------------------------------------------

TEST_F(Sketch, ADragKeepsItsBeginningAndItsEnd) {
    std::string gestures = "circle 50 50 10\npress 50 50\n";
    for (int i = 0; i < 2000; ++i)
        gestures += "drag " + std::to_string(50 + i / 10) + ".5 60\n";
    const Recording recording = record(gestures + "release\npress 249.5 60\nrelease\nundo\n");
    EXPECT_EQ(recording.result.err, "");
    EXPECT_EQ(recording.macro, "Document.Shapes.AddCircle 50, 50, 10\n"
                               "Document.BeginDrag 50, 50\n"
                               "Document.DragTo 249.5, 60\n"
                               "Document.EndDrag\n"
                               "Document.Pick 249.5, 60\n"
                               "Document.Undo\n");
    expectSamePicture(recording, "");
}

TEST_F(Sketch, TextsAreRecordedSoThatTheyReadTheSame) {
    const Recording recording = record("text 1 2 \"a \"\"b\"\" \x01\t'\xC3\xA4\"\n"
                                       "layer \"two words\"\n"
                                       "text 1 20 ' a comment has no part in this\n"
                                       "text 1 20 it's\r\n");
    EXPECT_EQ(recording.result.err, "-:3: it is: text X Y TEXT\n");
    EXPECT_NE(recording.macro.find("\"a \"\"b\"\" \" & Chr(1) & \"\" & Chr(9) & \"'\xC3\xA4\""),
              std::string::npos)
        << recording.macro;
    expectSamePicture(recording, "");
}

TEST_F(Sketch, AFaultyLineEndsAScriptAndWhatWasDoneIsKept) {
    const std::string circle = "circle 9 9 5\n";
    const std::pair<std::string, const char*> cases[] = {
        {circle + "walk\n", "-:2: there is no gesture 'walk'\n"},
        {circle + "line 1 2 3\n", "-:2: it is: line X1 Y1 X2 Y2\n"},
        {circle + "line 1 2 3 4x\n", "-:2: '4x' is not a number\n"},
        {circle + "line 1 2 3 nan\n", "-:2: 'nan' is not a number\n"},
        {circle + "circle 1 2 -3\n", "-:2: radius must be above 0\n"},
        {circle + "text 1 2 \"open\n", "-:2: a quote is not closed\n"},
        {circle + "set stroke purpel\n", "-:2: there is no colour 'purpel'\n"},
        {circle + "set stroke #12345g\n", "-:2: there is no colour '#12345g'\n"},
        {circle + "set size 12\n", "-:2: there is no field 'size'\n"},
        {circle + "set shapes 12\n", "-:2: there is no field 'shapes'\n"},
        {circle + "set dashed maybe\n", "-:2: 'maybe' must be on or off\n"},
        {circle + "select all Circle1\n", "-:2: nothing may follow 'all'\n"},
        {circle + "change text x\n", "-:2: A shape of kind Circle has no text\n"},
        {circle + "select none\nchange x 1\n", "-:3: select one shape first\n"},
        {circle + "open font\n", "-:2: there is no dialog 'font' to open here\n"},
        {circle + "open text\n", "-:2: Select one text first\n"},
        {circle + "ok\n", "-:2: no dialog is open\n"},
        {circle + "drag 1 1\n", "-:2: the button is not pressed\n"},
        {circle + "press 99 99\n", "-:2: there is no shape at 99, 99\n"},
        {circle + "press 9 9\nmove 1 1\n", "-:3: release the button first\n"},
        {circle + "press 9 9\ndrag 20 20\ndrag x 1\n", "-:4: 'x' is not a number\n"},
        {circle + "press 9 9\ndrag 20 20\n", "-:3: the button is still pressed at the end\n"},
        {circle + "open options\nset title x\ncircle 1 1 1\n",
         "-:4: close the dialog Options first\n"},
        {circle + "open options\nset width wide\n", "-:3: 'wide' is not a number\n"},
        {circle + "open options\nopen color\nset red 300\n",
         "-:4: A part of a colour must be a whole number from 0 to 255\n"},
        {circle + "open options\nopen color\nok\n", "-:4: the dialog Options is still open at the "
                                                    "end\n"},
    };
    for (const auto& [gestures, expected] : cases) {
        const Recording recording = record(gestures);
        EXPECT_EQ(recording.result.err, expected) << gestures;
        EXPECT_EQ(recording.result.status, 1);
        EXPECT_TRUE(recording.macro.starts_with("Document.Shapes.AddCircle 9, 9, 5\n"));
        expectSamePicture(recording, gestures);
    }
}

TEST_F(Sketch, ThePromptGoesOnBehindAFault) {
    const ProgramResult result = sketch({"--svg", path("out.svg")}, "circle 1 2 3\noops\nopen "
                                                                    "options\nset grid 1e9\nset "
                                                                    "title T\nok\nquit\nundo\n");
    EXPECT_EQ(result.out, "Document.Shapes.AddCircle 1, 2, 3\nApp.ShowOptions\nwithDlg Options\n"
                          "  .Title = \"T\"\n  .OK\nend withDlg\n");
    EXPECT_EQ(result.err, "-:2: there is no gesture 'oops'\n"
                          "-:4: Grid must be between -1000000 and 1000000\n");
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(slurp(path("out.svg")).find("<title>T</title>"), std::string::npos);
}

// --- any gestures ----------------------------------------------------------------------------

/// Lines of gestures, right and wrong, from a seed.
class RandomScript {
public:
    explicit RandomScript(unsigned seed) : m_Random(seed) {}

    std::string Make(int lines) {
        std::string script;
        while (lines-- > 0)
            script += line() + "\n";
        return script;
    }

private:
    std::string oneOf(const std::vector<std::string>& choices) {
        return choices[m_Random() % choices.size()];
    }
    std::string number() {
        const int cents = static_cast<int>(m_Random() % 20000) - 2000;
        return oneOf({std::to_string(cents / 100), std::to_string(cents) + "e-2",
                      std::to_string(cents) + "e-3"});
    }
    std::string numbers(int count) {
        std::string text;
        while (count-- > 0)
            text += " " + number();
        return text;
    }
    std::string color() { return oneOf({"red", "none", "#a0b1c2", "SteelBlue", "blurple"}); }
    std::string name() {
        return oneOf({"Line1", "Circle1", "Rectangle2", "Text1", "Text2", "\"my \"\"shape\"\"\""});
    }
    std::string field() {
        return oneOf({"title " + name(),
                      "width" + number().insert(0, " "),
                      "grid 20",
                      "grid 0",
                      "background " + color(),
                      "text \"\xC3\xA4 <&>\"",
                      "align center",
                      "size 9.5",
                      "bold on",
                      "italic off",
                      "family serif",
                      "red 12",
                      "blue 300",
                      "stroke " + color(),
                      "fill " + color(),
                      "strokewidth 2.5",
                      "dashed on",
                      "textsize 8",
                      "name " + name(),
                      "x" + numbers(1),
                      "radius" + numbers(1),
                      "layer A"});
    }
    std::string line() {
        switch (m_Random() % 16) {
        case 0:
        case 1:
            return "line" + numbers(4);
        case 2:
            return "rectangle" + numbers(4);
        case 3:
            return "circle" + numbers(3);
        case 4:
            return "text" + numbers(2) + " " + name();
        case 5:
        case 6:
            return "set " + field();
        case 7:
            return "change " + field();
        case 8:
            return oneOf({"select all", "select none", "select " + name(), "click" + numbers(2)});
        case 9:
            return oneOf({"layer A", "layer B", "show A off", "show A on", "show C off"});
        case 10:
            return oneOf(
                {"move" + numbers(2), "paint " + color(), "paint red " + color(), "delete"});
        case 11:
            return oneOf({"undo", "redo", "undo", "relative on", "relative off"});
        case 12:
            return "press" + numbers(2);
        case 13:
            return oneOf({"drag" + numbers(2), "drag" + numbers(2), "release"});
        case 14:
            return oneOf({"open options", "open text", "open font", "open color"});
        default:
            return oneOf({"ok", "ok", "cancel", "release"});
        }
    }

    std::mt19937 m_Random;
};

TEST_F(Sketch, WhateverIsRecordedPlaysBackAndIsUndone) {
    const std::string empty = sketch({"play", write("empty.mcr", "")}).out;
    int drawn = 0;
    for (unsigned seed = 1; seed <= 60; ++seed) {
        const std::string script = RandomScript(seed).Make(150);
        const Recording recording = record(script, "prompt");
        EXPECT_NE(recording.macro, "");
        drawn += recording.svg != empty;
        expectSamePicture(recording, "seed " + std::to_string(seed) + "\n");

        std::string undone = script + "release\ncancel\ncancel\ncancel\n";
        for (int i = 0; i < 160; ++i)
            undone += "undo\n";
        EXPECT_EQ(record(undone, "prompt").svg, empty) << "seed " << seed;
        if (HasFailure())
            break;
    }
    EXPECT_GT(drawn, 50);
}

// --- command line ----------------------------------------------------------------------------

TEST_F(Sketch, TellsItsVersionAndItsGestures) {
    EXPECT_EQ(sketch({"--version"}).out, "sketch " TEST_VERSION "\n");
    const ProgramResult help = sketch({"--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* command : {"play", "record", "prompt"})
        EXPECT_NE(help.out.find(std::string("\n  ") + command + " "), std::string::npos) << command;
    const ProgramResult gestures = sketch({"record", "--help"});
    EXPECT_EQ(gestures.status, 0);
    EXPECT_NE(gestures.out.find("  circle X Y RADIUS  "), std::string::npos) << gestures.out;
}

TEST_F(Sketch, RefusesWrongUsageAndUnusableFilesWithStatus2) {
    const std::string macro = write("good.mcr", "Options.Title = \"x\"\n");
    const std::string gestures = write("good.gestures", "circle 1 2 3\n");
    const std::string nowhere = path("none/file");
    const std::vector<std::string> cases[] = {
        {"dance"},
        {"play"},
        {"record"},
        {"play", nowhere},
        {"play", m_Folder},
        {"record", nowhere},
        {"record", m_Folder},
        {"play", macro, "--svg", nowhere},
        {"play", macro, "--svg", "/dev/full"},
        {"play", macro, "--macro", path("x.mcr")},
        {"record", gestures, "--svg", nowhere},
        {"record", gestures, "--macro", nowhere},
        {"record", gestures, "--macro", "/dev/full"},
    };
    for (const auto& arguments : cases) {
        const ProgramResult result = sketch(arguments);
        EXPECT_EQ(result.status, 2) << testing::PrintToString(arguments);
        EXPECT_NE(result.err, "") << testing::PrintToString(arguments);
    }
}

} // namespace
