// The object `WScript` as macros use it.

#include "macroengine/EngineFixture.h"
#include "macroengine/objects/Library.h"

#include "objects/UI_MacroErr.h"

#include <Platform.h>

namespace {

class WScriptTest : public EngineTest {
protected:
    WScriptTest() { macro.Register(result, "Result"); }
    ~WScriptTest() override { unsetenv("TSN_MACRO_PATH"); }

    std::string pathOf(const char* name) const { return (folder.GetPath() / name).string(); }
    /// What the macro leaves in Result.Title, or the text of its error.
    std::string run(const std::string& text) {
        const std::string file = folder.Write("main.mcr", text);
        const std::string error =
            errorOf([&] { macro.ExecuteMacro(file.c_str(), "", nullptr, 0); });
        return error == "no error" ? TextOf(result.Evaluate("Title", nullptr, 0)) : error;
    }

    Book result{""};
    const TestFolder folder;
};

TEST_F(WScriptTest, TellsAboutTheProcessAndTheScript) {
    EXPECT_EQ(run("Result.Title = WScript.Name & \"|\" & wscript.ScriptFullPath & \"|\" & "
                  "WScript.ScriptFolder"),
              "Macro Engine|" + pathOf("main.mcr") + "|" + folder.GetPath().string());
    EXPECT_EQ(run("Set w = WScript.Application.Echo(\"x\") : Result.Title = w.MacroName"),
              "WScript");
    EXPECT_EQ(run("Result.Title = WScript.Evaluate(2 * 3)"), "6");

    const std::string program = GetPlatform().Arguments()[0].c_str();
    EXPECT_EQ(run("Result.Title = WScript.FullName"), program.substr(0, program.find(' ')));
    EXPECT_EQ(run("Result.Title = WScript.Path"),
              program.substr(0, program.rfind('/') == std::string::npos ? 0 : program.rfind('/')));
}

TEST_F(WScriptTest, ArgumentsAreThePartsOfTheCommandLine) {
    EXPECT_EQ(run("Result.Title = (WScript.Arguments.COUNT >= 1)"), "True");
    EXPECT_EQ(run("Result.Title = (WScript.Arguments(0) = WScript.FullName)"), "True");
    EXPECT_EQ(run("Set a = WScript.Arguments : Result.Title = (a(0) = a.Item(0))"), "True");
    const char* const wrong = "Error: Incorrect function argument(s)";
    for (const char* use :
         {"WScript.Arguments(9999)", "WScript.Arguments(-1)", "WScript.Arguments(0, 1)",
          "WScript.Arguments.count(1)", "WScript.Arguments.Length"}) {
        EXPECT_EQ(run(std::string("Result.Title = ") + use), wrong) << use;
        EXPECT_EQ(processor().GetLastErrorCode(), 34) << use;
    }
}

TEST_F(WScriptTest, RunsScriptsBesideTheMacroAndAlongThePath) {
    folder.Write("sub.mcr", "Result.Title = Result.Title & \"beside \"");
    folder.Write("lib/sub.mcr", "Result.Title = Result.Title & \"wrong \"");
    folder.Write("lib/far.mcr", "Result.Title = Result.Title & \"lib \"");
    folder.Write("more/farther.mcr", "Result.Title = Result.Title & x");
    const std::string path = pathOf("lib") + ";" + pathOf("more");
    setenv("TSN_MACRO_PATH", path.c_str(), 1);
    EXPECT_EQ(run("Result.Title = \"\" : x = \"more\"\n"
                  "WScript.Execute \"sub.mcr\"\n"
                  "WScript.Execute \".\\lib\\..\\sub.mcr\"\n"
                  "WScript.Execute \"far.mcr\"\n"
                  "WScript.Execute \"farther.mcr\"\n"),
              "beside beside lib more");
    EXPECT_EQ(run("WScript.Execute \"lib\""), "Script path not found");
    EXPECT_EQ(run("WScript.Execute \"nowhere.mcr\""), "Script path not found");
    EXPECT_EQ(run("WScript.Execute \"/nowhere/sub.mcr\""), "Script path not found");
}

TEST_F(WScriptTest, AScriptRunsOnlyForTheStatementThatAskedForIt) {
    folder.Write("sub.mcr", "Result.Title = Result.Title & \"ran \"");
    EXPECT_EQ(run("Result.Title = \"\"\n"
                  "WScript.Execute \"sub.mcr\"\n"
                  "WScript.Echo \"again\"\n"
                  "s = WScript.Execute(\"sub.mcr\")\n"
                  "WScript.Echo \"again\"\n"),
              "ran ");
    EXPECT_EQ(run("WScript.Execute WScript.ScriptFullPath").rfind("Error: Illegal nesting", 0), 0u)
        << "a script cannot run itself";
}

TEST_F(WScriptTest, BelongsToItsOwnProcessor) {
    UI_MacroVariant* outer = processor().Get("WScript");
    ASSERT_NE(outer, nullptr);
    {
        MacroParser inner(true);
        EXPECT_NE(inner.Get("WScript"), outer);
        EXPECT_NE(inner.Get("WScript"), nullptr);
    }
    EXPECT_EQ(processor().Get("WScript"), outer);
    EXPECT_TRUE(outer->IsPropertyGet(nullptr));
    EXPECT_TRUE(outer->IsPropertyGet("evaluate"));
    EXPECT_FALSE(outer->IsPropertyGet("Execute"));
}

TEST_F(WScriptTest, TheErrorObjectCannotBeNamed) {
    UI_MacroErr error(processor());
    EXPECT_EQ(error.GetEvalParent(), nullptr);
    EXPECT_EQ(error.Evaluate("Number", nullptr, 0).getRefVal(),
              static_cast<UI_MacroVariant*>(&error));
    EXPECT_EQ(run("Result.Title = TypeName(Err)"), "Empty");
}

} // namespace
