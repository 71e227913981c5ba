// What sketch records of gestures, and how it takes faulty ones.

#include "SketchFixture.h"

namespace {

using SketchRecord = Sketch;

TEST_F(SketchRecord, ADragKeepsItsBeginningAndItsEnd) {
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

TEST_F(SketchRecord, RelativePlacesMoveWithTheLastOne) {
    const Recording recording = record("relative on\nline 10 10.5 15 8\ncircle 15 8 4\n"
                                       "press 15 8\ndrag 16 9\ndrag 17.25 8\nrelease\n"
                                       "text 17.25 8 end\n");
    EXPECT_EQ(recording.macro,
              "Document.Shapes.AddLine Document.X + 10, Document.Y + 10.5, Document.X + 15, "
              "Document.Y + 8\n"
              "Document.Shapes.AddCircle Document.X, Document.Y, 4\n"
              "Document.BeginDrag Document.X, Document.Y\n"
              "Document.DragTo Document.X + 2.25, Document.Y\n"
              "Document.EndDrag\n"
              "Document.Shapes.AddText Document.X, Document.Y, \"end\"\n");
    expectSamePicture(recording, "");
    EXPECT_EQ(titleAfter("Document.Pick 100, 200\n" + recording.macro +
                         "Set last = Document.Shapes(2)\nOptions.Title = last.X & \" \" & last.Y"),
              "117.25 208");
}

TEST_F(SketchRecord, TextsAreRecordedSoThatTheyReadTheSame) {
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

TEST_F(SketchRecord, AFaultyLineEndsAScriptAndWhatWasDoneIsKept) {
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

TEST_F(SketchRecord, ThePromptGoesOnBehindAFault) {
    const ProgramResult result = sketch({"--svg", path("out.svg")}, "circle 1 2 3\noops\nopen "
                                                                    "options\nset grid 1e9\nset "
                                                                    "title T\nok\nquit\nundo\n");
    EXPECT_EQ(result.out, "Document.Shapes.AddCircle 1, 2, 3\nApp.ShowOptions\nwithDlg Options\n"
                          "  .Title = \"T\"\n  .OK\nend withDlg\n");
    EXPECT_EQ(result.err, "-:2: there is no gesture 'oops'\n"
                          "-:4: Grid must be between -1000000 and 1000000\n");
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(ReadWholeFile(path("out.svg")).find("<title>T</title>"), std::string::npos);
}

TEST_F(SketchRecord, HelpIsNoPartOfTheMacro) {
    const ProgramResult result = sketch({"record", "-"}, "circle 1 2 3\nhelp\nselect all\n");
    EXPECT_EQ(result.out, "Document.Shapes.AddCircle 1, 2, 3\nDocument.SelectAll\n");
    EXPECT_NE(result.err.find("rectangle X Y WIDTH HEIGHT"), std::string::npos) << result.err;
    EXPECT_EQ(result.status, 0);
}

TEST_F(SketchRecord, TheLogHoldsWhatIsRecordedAndKeepsTheOneBefore) {
    const std::string log = path("session.log");
    sketch({"record", "-", "--log", log}, "circle 1 2 3\n");
    const ProgramResult result = sketch({"record", "-", "--log", log},
                                        "circle 5 5 3\npress 5 5\ndrag 6 6\ndrag 7 7\nrelease\n");
    EXPECT_EQ(result.err, "");
    EXPECT_NE(result.out.find("DragTo 7, 7"), std::string::npos);
    EXPECT_EQ(ReadWholeFile(log), result.out);
    EXPECT_EQ(ReadWholeFile(path("session.bak")), "Document.Shapes.AddCircle 1, 2, 3\n");
}

} // namespace
