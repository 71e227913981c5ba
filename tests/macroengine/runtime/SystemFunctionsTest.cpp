// The functions that reach beyond the macro.

#include "macroengine/runtime/MacroRun.h"
#include "runtime/FunctionTable.h"
#include "system/platform/TestPlatform.h"

#include <gtest/gtest.h>

namespace {

class SystemFunctions : public testing::Test {
protected:
    std::string valueOf(const std::string& expression) {
        const int error = run.Run("result = " + expression);
        return error ? "error " + std::to_string(error) : run.Value("result");
    }

    MacroRun run;
};

struct HooksInPlace {
    explicit HooksInPlace(const MacroHostHooks& hooks) { MacroSupport::SetHostHooks(hooks); }
    ~HooksInPlace() { MacroSupport::SetHostHooks(MacroHostHooks()); }
};

TEST_F(SystemFunctions, TellOfTheProcess) {
    TestPlatform platform;
    platform.arguments = {"mcr", "two words", ""};
    platform.environment["PLACE"] = "here";
    EXPECT_EQ(valueOf("Command()"), "mcr \"two words\" \"\"");
    EXPECT_EQ(valueOf("Environ(\"PLACE\") & \"|\" & Environ(\"NOSUCH\")"), "here|");
    EXPECT_EQ(valueOf("CurDir() & \"|\" & CurDir(\"c:\") & \"|\" & CurDir(\"/\")"),
              "/home/user||/home/user");
    EXPECT_EQ(valueOf("ScriptEngine() & ScriptEngineBuildVersion() & ScriptEngineMajorVersion() & "
                      "ScriptEngineMinorVersion(1, 2, 3)"),
              "ORV Macro Engine1.010");
    EXPECT_EQ(valueOf("TypeName(ScriptEngineBuildVersion())"), "String");
}

TEST_F(SystemFunctions, DirFindsFilesByMaskAndKind) {
    for (const char* name : {"b.txt", "a.txt", "c.dat", ".hidden.txt", "A.txt"})
        run.Folder().Write(name, "");
    GetPlatform().MakeDirectory(run.Folder().Path("inner.txt"));
    const struct {
        const char* arguments;
        const char* found;
    } cases[] = {
        {"\"@*.txt\"", "A.txt a.txt b.txt "},
        {"\"@?.*\", 0", "A.txt a.txt b.txt c.dat "},
        {"\"@*.txt\", 2", ".hidden.txt A.txt a.txt b.txt "},
        {"\"@*.txt\", 16", "A.txt a.txt b.txt inner.txt "},
        {"\"@\"", "A.txt a.txt b.txt c.dat "},
        {"\"@inner.txt\"", ""},
        {"\"@inner.txt\", 16", "inner.txt "},
        {"\"@inner.txt\\\", 16", ""},
        {"\"@none/*\"", ""},
        {"\"@*\", 8", ""},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(run.Run(std::string("name = Dir(") + row.arguments +
                          ")\nDo Until name = \"\"\nall = all & name & \" \"\nname = Dir()\nLoop"),
                  0);
        const std::string all = run.Value("all");
        EXPECT_EQ(all == "no variable" ? "" : all, row.found) << row.arguments;
    }
}

TEST_F(SystemFunctions, DirWithoutASearchFindsNothing) {
    MacroRun fresh;
    EXPECT_EQ(fresh.Run("result = \"[\" & Dir() & \"]\""), 0);
    EXPECT_EQ(fresh.Value("result"), "[]");
}

TEST_F(SystemFunctions, MakeAndMoveFilesInSilence) {
    EXPECT_EQ(run.Run("MkDir \"@made\"\nMkDir \"@made\"\nMkDir \"@no/way\"\n"
                      "Open \"@made\\one\" For Output As #1\nPrint #1, \"1\";\nClose\n"
                      "Open \"@two\" For Output As #1\nPrint #1, \"2\";\nClose\n"
                      "MoveFile \"@made\\one\", \"@two\"\nMoveFile \"@nosuch\", \"@two\"\n"
                      "name = GetTmpFileName(\"@made\")\nnone = GetTmpFileName(\"@no\")\n"),
              0)
        << run.GetError();
    EXPECT_EQ(run.Bytes("two"), "1");
    EXPECT_FALSE(GetPlatform().Exists(run.Folder().Path("made/one")));
    const std::string name = run.Value("name");
    EXPECT_EQ(name.rfind(run.InFolder("@made/"), 0), 0u) << name;
    EXPECT_TRUE(name.ends_with(".tmp") && GetPlatform().Exists(name.c_str())) << name;
    EXPECT_EQ(run.Value("none"), "");
}

TEST_F(SystemFunctions, MsgBoxAnswersTheDefaultButtonWithoutAHost) {
    const struct {
        const char* flags;
        const char* button;
    } cases[] = {{"0", "1"},   {"1", "1"},     {"257", "2"}, {"2", "3"},   {"258", "4"},
                 {"514", "5"}, {"3", "6"},     {"259", "7"}, {"515", "2"}, {"4", "6"},
                 {"260", "7"}, {"5", "4"},     {"261", "2"}, {"256", "1"}, {"772", "6"},
                 {"12", "1"},  {"16 + 4", "6"}};
    for (const auto& row : cases)
        EXPECT_EQ(valueOf(std::string("MsgBox(\"text\", ") + row.flags + ")"), row.button)
            << row.flags;
    EXPECT_EQ(valueOf("MsgBox(\"a\", 1, \"b\", 2)"), "error 34");
}

TEST_F(SystemFunctions, MsgBoxAndDoEventsAskTheHost) {
    std::string shown;
    int events = 0;
    MacroHostHooks own;
    own.messageBox = [&](const SYS_String& text, int flags, const SYS_String& title) {
        shown += std::string(text) + "/" + std::to_string(flags) + "/" + title.c_str() + ";";
        return 42;
    };
    own.applicationName = [] { return SYS_String("App"); };
    own.doEvents = [&] { ++events; };
    HooksInPlace hooks(own);
    EXPECT_EQ(valueOf("MsgBox(\"a\") + MsgBox(\"b\", 4) + MsgBox(\"c\", , \"T\")"), "126");
    EXPECT_EQ(run.Run("MsgBox \"d\", 1, \"U\", \"help\", 7\nDoEvents"), 0);
    EXPECT_EQ(shown, "a/0/App;b/4/App;c/0/T;d/1/U;");
    EXPECT_EQ(events, 1);
}

TEST_F(SystemFunctions, ObjectsThatCannotBeHadAreEmpty) {
    EXPECT_EQ(
        valueOf("TypeName(CreateObject(\"no.such\")) & TypeName(CreateObject(\"a\", \"b\")) & "
                "TypeName(GetObject(\"none\")) & TypeName(GetObject(, \"no.such\")) & "
                "TypeName(GetObject(\"none\", \"no.such\"))"),
        "EmptyEmptyEmptyEmptyEmpty");
    EXPECT_EQ(run.Run("Set x = CreateObject(\"no.such\")\nresult = x Is Nothing"), 0);
    EXPECT_EQ(run.Value("result"), "True");
}

TEST_F(SystemFunctions, GetRefNamesAProcedure) {
    EXPECT_EQ(run.Run("Function twice(n)\ntwice = 2 * n\nEnd Function\n"
                      "Set f = GetRef(\"TWICE\")\nresult = f(21)"),
              0)
        << run.GetError();
    EXPECT_EQ(run.Value("result"), "42");
    EXPECT_EQ(valueOf("GetRef(\"nosuch\")"), "error 34");
    EXPECT_EQ(valueOf("GetRef(\"MsgBox\")"), "error 34");
}

TEST_F(SystemFunctions, LookingAtValuesChangesNothing) {
    run.Run("x = 1");
    UI_MacroVariant arguments[] = {run.Folder().Path("made"), run.Folder().Path("to")};
    const struct {
        MacroFunctionHandler handler;
        int count;
    } cases[] = {{MacroMsgBox, 1},       {MacroDoEvents, 0},  {MacroMkDir, 1},
                 {MacroMoveFile, 2},     {MacroDir, 1},       {MacroGetTmpFileName, 1},
                 {MacroCreateObject, 1}, {MacroGetObject, 1}, {MacroRnd, 0}};
    run.Engine().SetExecutionMode(MacroSupport::emEvalPure);
    for (const auto& row : cases) {
        EXPECT_THROW(row.handler(row.count, arguments), MacroException);
        EXPECT_EQ(run.Engine().GetLastErrorCode(), 46);
    }
    EXPECT_NO_THROW(MacroCommand(0, nullptr));
    run.Engine().SetExecutionMode(MacroSupport::emFinished);
    EXPECT_FALSE(GetPlatform().Exists(run.Folder().Path("made")));
}

} // namespace
