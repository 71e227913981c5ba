// What macros can do with the objects of sketch, and what they are refused.

#include "SketchFixture.h"

namespace {

using SketchPlay = Sketch;

// --- objects ---------------------------------------------------------------------------------

TEST_F(SketchPlay, ObjectsTellWhatTheyAre) {
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

TEST_F(SketchPlay, ForEachVisitsTheShapesThatWereThere) {
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

TEST_F(SketchPlay, RefusalsNameTheReasonAndTheLine) {
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

TEST_F(SketchPlay, AFailureListsTheOpenProcedures) {
    const std::string file = path("macro.mcr");
    EXPECT_EQ(play("Sub inner(n)\nDocument.Shapes.AddCircle n, n, 0\nEnd Sub\n"
                   "Sub outer\ninner 3\nEnd Sub\nouter\n")
                  .err,
              file + ":2: radius must be above 0\n  at " + file + ":2 in inner\n  at " + file +
                  ":5 in outer\n  at " + file + ":7 in Macro global code\n");
    EXPECT_EQ(play("Set files = CreateObject(\"Scripting.FileSystemObject\")\n"
                   "files.GetFolder \"nowhere\"\n")
                  .err,
              file +
                  ":2: Invoke failed\n  Scripting.FileSystemObject: Folder not found: "
                  "'nowhere'\n  at " +
                  file + ":2 in Macro global code\n");
}

TEST_F(SketchPlay, MacrosHaveDictionariesAndFiles) {
    EXPECT_EQ(titleAfter("Set d = CreateObject(\"Scripting.Dictionary\")\nd.Add \"a\", 3\n"
                         "Set f = CreateObject(\"Scripting.FileSystemObject\")\n"
                         "Options.Title = d(\"a\") & f.GetBaseName(\"/tmp/plan.txt\")\n"),
              "3plan");
}

TEST_F(SketchPlay, MessagesGoToStandardErrorAndAnswerThemselves) {
    const ProgramResult result = play("Options.Title = MsgBox(\"Sure?\", mbYesNo, \"Plan\")\n");
    EXPECT_EQ(result.err, "Plan: Sure?\n");
    EXPECT_NE(result.out.find("<title>6<"), std::string::npos) << result.out;
}

TEST_F(SketchPlay, TextThatXmlCannotHoldIsReplacedAndTheRestEscaped) {
    const ProgramResult result =
        play("Document.Shapes.AddText 1, 2, \"<a> & \"\"b\"\" \" & Chr(195) & Chr(164) & Chr(195) "
             "& \"!\" & Chr(7) & Chr(10) & \"second\"\n");
    EXPECT_NE(result.out.find(">&lt;a&gt; &amp; &quot;b&quot; \xC3\xA4\xEF\xBF\xBD!\xEF\xBF\xBD<"),
              std::string::npos)
        << result.out;
    EXPECT_NE(result.out.find("y=\"17\" "), std::string::npos) << result.out; // the second line
}

TEST_F(SketchPlay, TheGridAndHiddenLayersShowInThePicture) {
    const ProgramResult result =
        play("Options.Width = 50\nOptions.Height = 30.5\nOptions.Grid = 20\n"
             "Document.Layer = \"Top\"\nDocument.Shapes.AddLine 1, 1, 2, 2\n"
             "Document.Layer = \"Base\"\nDocument.Shapes.AddLine 3, 3, 4, 4\n"
             "Document.Layer = \"Hidden\"\nDocument.Shapes.AddLine 5, 5, 6, 6\n"
             "Document.LayerVisible(\"Hidden\") = False\n");
    EXPECT_NE(result.out.find("d=\"M20 0V30.5M40 0V30.5M0 20H50\""), std::string::npos);
    const std::size_t base = result.out.find("x1=\"3\"");
    const std::size_t top = result.out.find("x1=\"1\"");
    EXPECT_LT(base, top); // layers lie in the order of their making
    EXPECT_NE(top, std::string::npos);
    EXPECT_EQ(result.out.find("x1=\"5\""), std::string::npos);
}

TEST_F(SketchPlay, QuitEndsTheMacroAndGivesTheStatus) {
    ProgramResult result = play("Options.Title = \"kept\"\nApp.Quit 7\nOptions.Title = \"lost\"\n");
    EXPECT_EQ(result.status, 7);
    EXPECT_NE(result.out.find("<title>kept<"), std::string::npos);
    result = play("App.ShowOptions\nwithDlg Options\n.Title = \"kept\"\n.OK\nApp.Quit 5\nend "
                  "withDlg\nOptions.Title = \"lost\"\n");
    EXPECT_EQ(result.status, 5);
    EXPECT_NE(result.out.find("<title>kept<"), std::string::npos);
}

// --- dialogs in macros -----------------------------------------------------------------------

TEST_F(SketchPlay, MacrosWorkDialogsByTheirBlocks) {
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

} // namespace
