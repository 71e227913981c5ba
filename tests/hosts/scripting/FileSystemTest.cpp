// Files and folders as macros see them, in a folder of the test.

#include "macroengine/EngineFixture.h"

#include <Scripting.h>

#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;

class FileSystemObject : public EngineTest {
protected:
    FileSystemObject() { scripting::Register(); }
    ~FileSystemObject() override { scripting::Revoke(); }

    /// Runs a macro that knows `fso` and `here`; the lines that it adds to `Log`.
    Lines run(const std::string& text) {
        return runText("Set fso = CreateObject(\"Scripting.FileSystemObject\")\nhere = \"" +
                       folder.GetPath().string() + "\"\n" + text);
    }
    /// What the object said of the failure that ends the macro.
    std::string detailOf(const std::string& text) {
        try {
            execute(textSource("Set fso = CreateObject(\"Scripting.FileSystemObject\")\nhere = \"" +
                               folder.GetPath().string() + "\"\n" + text));
        } catch (const MacroException& error) {
            EXPECT_EQ(error.GetText(), "Invoke failed");
            std::string detail(error.GetDetail().View());
            const std::string path = folder.GetPath().string() + "/";
            for (std::size_t at; (at = detail.find(path)) != std::string::npos;)
                detail.erase(at, path.size());
            return detail;
        }
        return "no error";
    }
    std::string contentOf(const std::string& name) {
        std::ifstream file(folder.GetPath() / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }
    bool exists(const std::string& name) { return fs::exists(folder.GetPath() / name); }

    TestFolder folder;
};

TEST_F(FileSystemObject, TakesPathsApart) {
    const struct {
        const char* path;
        const char* parts; // parent, name, base, extension
    } table[] = {
        {"a/b/c.tar.gz", "a/b|c.tar.gz|c.tar|gz"},
        {"a\\b\\c", "a\\b|c|c|"},
        {"/c.txt", "/|c.txt|c|txt"},
        {"c.txt", "|c.txt|c|txt"},
        {"a/b/", "a|b|b|"},
        {"/", "||"
              "|"},
        {"", "|||"},
        {".profile", "|.profile||profile"},
    };
    for (const auto& row : table)
        EXPECT_EQ(run(std::string("p = \"") + row.path +
                      "\"\nLog.Add fso.GetParentFolderName(p) & \"|\" & fso.GetFileName(p) & "
                      "\"|\" & fso.GetBaseName(p) & \"|\" & fso.GetExtensionName(p)"),
                  Lines{row.parts})
            << row.path;
    EXPECT_EQ(run("Log.Add fso.BuildPath(\"a\", \"b\"), fso.BuildPath(\"a/\", \"/b\"), "
                  "fso.BuildPath(\"a\\\", \"b\"), fso.BuildPath(\"\", \"b\"), "
                  "fso.BuildPath(\"a\", \"\"), fso.GetAbsolutePathName(\"/a/./b/../c\")"),
              (Lines{"a/b", "a/b", "a\\b", "b", "a", "/a/c"}));
}

TEST_F(FileSystemObject, WritesAndReadsText) {
    EXPECT_EQ(run("Set f = fso.CreateTextFile(here & \"/t.txt\")\n"
                  "f.Write \"one\" : f.Write 2 : f.WriteLine : f.WriteBlankLines 1\n"
                  "Log.Add f.Line, f.Column\n"
                  "f.WriteLine \"gr\xC3\xBC\xC3\x9F\xFF\" : f.Write \"end\" : f.Close : f.Close\n"),
              (Lines{"3", "1"}));
    EXPECT_EQ(contentOf("t.txt"), "one2\r\n\r\ngr\xC3\xBC\xC3\x9F\xFF\r\nend");

    EXPECT_EQ(run("Set f = fso.OpenTextFile(here & \"\\t.txt\")\n"
                  "Do Until f.AtEndOfStream\n Log.Add f.Line & f.ReadLine\nLoop\n"),
              (Lines{"1one2", "2", "3gr\xC3\xBC\xC3\x9F\xFF", "4end"}));
    EXPECT_EQ(run("Set f = fso.OpenTextFile(here & \"/t.txt\", 1)\n"
                  "f.Skip 1 : Log.Add f.Read(2), f.Column, f.AtEndOfLine\n"
                  "f.SkipLine : f.SkipLine : Log.Add f.Read(2), Len(f.ReadAll), f.AtEndOfStream"),
              (Lines{"ne", "4", "False", "gr", "10", "True"}));

    run("Set f = fso.OpenTextFile(here & \"/t.txt\", 8) : f.Write \"!\" : f.Close\n"
        "Set f = fso.OpenTextFile(here & \"/new.txt\", 2, True) : f.Write \"new\"\n"
        "Set f = Nothing");
    EXPECT_TRUE(contentOf("t.txt").ends_with("end!"));
    EXPECT_EQ(contentOf("new.txt"), "new") << "written when the last reference goes";
    // Longer than any buffer, and read in pieces that fit none.
    EXPECT_EQ(run("Set f = fso.CreateTextFile(here & \"/big.txt\")\nFor i = 1 To 5000\n"
                  " f.WriteLine String(50, \"x\") & i\nNext\nf.Close\nn = 0\n"
                  "Set f = fso.OpenTextFile(here & \"/big.txt\")\n"
                  "While Not f.AtEndOfStream\n n = n + Len(f.ReadLine)\nWend\nLog.Add n, f.Line\n"
                  "Set f = fso.OpenTextFile(here & \"/big.txt\")\n n = 0\n"
                  "While Not f.AtEndOfStream\n n = n + Len(f.Read(70001))\nWend\nLog.Add n"),
              (Lines{"268893", "5001", "278893"}));
}

TEST_F(FileSystemObject, WritesAndReadsTextOf16Bits) {
    const std::string text = "gr\xC3\xBC\xC3\x9F \xF0\x9F\x8C\xB1\xFF";
    run("Set f = fso.CreateTextFile(here & \"/w.txt\", True, True)\nf.WriteLine \"" + text +
        "\" : f.Close\nfso.CreateTextFile(here & \"/empty.txt\", True, True).Close");
    EXPECT_EQ(contentOf("w.txt"),
              std::string("\xFF\xFEg\0r\0\xFC\0\xDF\0 \0\x3C\xD8\x31\xDF\xFF\xDC"
                          "\r\0\n\0",
                          22));
    EXPECT_EQ(contentOf("empty.txt"), "\xFF\xFE");
    // Characters that come in pieces, and a file that is longer than any buffer.
    EXPECT_EQ(run("p = here & \"/w.txt\"\n"
                  "Set f = fso.OpenTextFile(p, 8, False, -1)\nLog.Add f.Line\n"
                  "f.Write Chr(195) : f.Write Chr(188)\n"
                  "For i = 1 To 30000\n f.Write \"x\xE2\x82\xAC\"\nNext\nf.Close\n"
                  "For Each way In Array(-1, True, -2)\n"
                  " Set f = fso.OpenTextFile(p, 1, False, way)\n Log.Add f.ReadLine\n"
                  " Log.Add f.Read(2), Len(f.ReadAll), f.AtEndOfStream\nNext\n"
                  "Log.Add Len(fso.GetFile(p).OpenAsTextStream(1, -2).ReadAll)\n"
                  "Log.Add fso.OpenTextFile(p).Read(1) = Chr(255)\n"
                  "Log.Add fso.OpenTextFile(here & \"/empty.txt\", 1, False, -1).AtEndOfStream"),
              (Lines{"2", text, "\xC3\xBC", "120000", "True", text, "\xC3\xBC", "120000", "True",
                     text, "\xC3\xBC", "120000", "True", "120016", "True", "True"}));
    // Without a mark, with half a unit and half a pair at the end; -2 takes it for bytes.
    folder.Write("odd.txt", std::string_view("a\0\x3C\xD8z", 5));
    EXPECT_EQ(run("Log.Add Len(fso.OpenTextFile(here & \"/odd.txt\", 1, False, -1).ReadAll)\n"
                  "Log.Add Len(fso.OpenTextFile(here & \"/odd.txt\", 1, False, -2).ReadAll)"),
              (Lines{"5", "5"}));
    run("Set f = fso.OpenTextFile(here & \"/w.txt\", 2, False, -2) : f.Write \"a\" : f.Close\n"
        "fso.OpenTextFile(here & \"/odd.txt\", 8, False, -2).Write \"b\"");
    EXPECT_EQ(contentOf("w.txt"), std::string("\xFF\xFE"
                                              "a\0",
                                              4));
    EXPECT_TRUE(contentOf("odd.txt").ends_with("zb"));
}

TEST_F(FileSystemObject, AppendsBehindTheLinesThatAreThere) {
    folder.Write("log.txt", "one\r\ntwo\nthree");
    EXPECT_EQ(run("Set f = fso.OpenTextFile(here & \"/log.txt\", 8)\nLog.Add f.Line, f.Column\n"
                  "f.Write \"!\" : Log.Add f.Line, f.Column\n"
                  "f.WriteLine : f.Write \"ab\" : Log.Add f.Line, f.Column : f.Close\n"
                  "Set f = fso.OpenTextFile(here & \"/log.txt\", 8)\n"
                  "f.Write String(70000, \"x\") : Log.Add f.Line, f.Column\n"
                  "Set f = fso.OpenTextFile(here & \"/new.txt\", 8, True)\nLog.Add f.Line"),
              (Lines{"3", "6", "3", "7", "4", "3", "4", "70003", "1"}));
}

TEST_F(FileSystemObject, KnowsDatesAndNames) {
    setenv("TZ", "UTC0", 1);
    tzset();
    const std::string path = folder.Write("old.txt", "1");
    folder.Write("sub/in.txt", "1");
    const timespec times[2] = {{1000000000, 0}, {999999999, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    EXPECT_EQ(
        run("Set f = fso.GetFile(here & \"/old.txt\")\nSet s = fso.GetFolder(here & \"/sub\")\n"
            "Log.Add f.DateLastModified, f.DateLastAccessed, Len(f.DateCreated)\n"
            "Log.Add s.DateLastModified > f.DateLastModified, "
            "s.DateCreated <= s.DateLastModified\n"
            "f.Name = \"new.txt\" : s.Name = \"under\"\nLog.Add f.Name, s.Path = here & "
            "\"/under\"\n"
            "f.Name = f.Name : f.Name = \"New.txt\" : Log.Add f.Size\n"
            "Log.Add s.SubFolders.Add(\"deep\").Name, s.SubFolders.Count"),
        (Lines{"2001-09-09 01:46:39", "2001-09-09 01:46:40", "19", "True", "True", "new.txt",
               "True", "1", "deep", "1"}));
    EXPECT_TRUE(exists("New.txt"));
    EXPECT_TRUE(exists("under/in.txt"));
    EXPECT_EQ(run("fso.GetFolder(here).Files.Add \"x\""), Lines{"Error: Member not found: "});
    // In the name of a file that is there, a star is a star.
    for (const char* name : {"*.txt", "a.txt", "b.txt"})
        folder.Write(name, name);
    fs::create_directory(folder.GetPath() / "?");
    fs::create_directory(folder.GetPath() / "d");
    run("For Each f In fso.GetFolder(here).Files\n If f.Name = \"*.txt\" Then\n"
        "  f.Copy here & \"/copy\" : f.Move here & \"/?/\" : f.Delete\n End If\nNext\n"
        "fso.GetFolder(here & \"/?\").Delete");
    EXPECT_EQ(contentOf("copy"), "*.txt");
    EXPECT_TRUE(exists("a.txt") && exists("b.txt") && exists("d"));
    EXPECT_FALSE(exists("*.txt") || exists("?"));
}

TEST_F(FileSystemObject, WalksFolders) {
    folder.Write("b.txt", "12345");
    folder.Write("a.txt", "1");
    folder.Write("sub/c.txt", "22");
    folder.Write("sub/deep/d.txt", "333");
    EXPECT_EQ(run("Sub walk(f)\n"
                  " For Each file In f.Files\n  Log.Add f.Name & \"/\" & file.Name & file.Size\n"
                  " Next\n"
                  " For Each inner In f.SubFolders\n  walk inner\n Next\nEnd Sub\n"
                  "Set top = fso.GetFolder(here & \"/sub\")\nwalk top\n"
                  "Set up = top.ParentFolder\n"
                  "Log.Add up = here, up.Files.Count, up.SubFolders.Count, up.Size\n"
                  "Log.Add up.Files(\"b.txt\").Size, fso.FileExists(up.Files.Item(\"a.txt\"))\n"
                  "Log.Add fso.GetFolder(\"/\").IsRootFolder, top.IsRootFolder\n"
                  "Set up = fso.GetFolder(\"/\").ParentFolder\nLog.Add up Is Nothing\n"
                  "Log.Add fso.GetFolder(fso.GetSpecialFolder(2)).Path = "
                  "fso.GetSpecialFolder(2).Path\n"),
              (Lines{"sub/c.txt2", "deep/d.txt3", "True", "2", "1", "11", "5", "True", "True",
                     "False", "True", "True"}));
}

TEST_F(FileSystemObject, CopiesMovesAndDeletes) {
    folder.Write("a.txt", "a");
    folder.Write("b.txt", "b");
    folder.Write("c.dat", "c");
    fs::create_directory(folder.GetPath() / "to");
    run("fso.CopyFile here & \"/*.txt\", here & \"/to\"\n"
        "fso.CopyFile here & \"/c.dat\", here & \"/d.dat\"\n"
        "fso.MoveFile here & \"\\c.dat\", here & \"\\to\\\"\n"
        "fso.CreateFolder(here & \"/inner\").CreateTextFile(\"x.txt\").Write \"x\"\n"
        "fso.CopyFolder here & \"/to\", here & \"/copy\"\n"
        "fso.MoveFolder here & \"/inner\", here & \"/copy/\"\n"
        "fso.DeleteFile here & \"/?.txt\"\n"
        "Set f = fso.GetFile(here & \"/d.dat\") : f.Move here & \"/e.dat\"\n"
        "Log.Add f.Name : f.Copy here & \"/to/\"");
    EXPECT_EQ(log.lines, Lines{"e.dat"});
    for (const char* name : {"to/a.txt", "to/b.txt", "to/c.dat", "copy/b.txt", "copy/inner/x.txt",
                             "e.dat", "to/e.dat"})
        EXPECT_TRUE(exists(name)) << name;
    for (const char* name : {"a.txt", "b.txt", "c.dat", "d.dat", "inner"})
        EXPECT_FALSE(exists(name)) << name;

    // A link to a folder goes; what it leads to stays.
    fs::create_directory_symlink(folder.GetPath() / "to", folder.GetPath() / "copy/link");
    run("fso.DeleteFolder here & \"/cop*\" : fso.GetFile(here & \"/e.dat\").Delete");
    EXPECT_FALSE(exists("copy"));
    EXPECT_FALSE(exists("e.dat"));
    EXPECT_TRUE(exists("to/a.txt"));
}

TEST_F(FileSystemObject, TellsWhatWentWrong) {
    folder.Write("a.txt", "a");
    folder.Write("b.txt", "b");
    fs::create_directory(folder.GetPath() / "sub");
    const char* const source = "Scripting.FileSystemObject: ";
    const struct {
        const char* text;
        std::string detail;
    } table[] = {
        {"fso.OpenTextFile here & \"/none.txt\"",
         source + std::string("File or folder not found: 'none.txt'")},
        {"fso.OpenTextFile here & \"/none.txt\", 2",
         source + std::string("File or folder not found: 'none.txt'")},
        {"fso.OpenTextFile here & \"/a.txt\", 3",
         source + std::string("A file is opened for reading (1), writing (2) or appending (8), "
                              "not 3")},
        {"fso.CreateTextFile here & \"/a.txt\", False",
         source + std::string("It is there already: 'a.txt'")},
        {"fso.CreateTextFile here & \"/sub\"", source + std::string("That is a folder: 'sub'")},
        {"fso.GetFolder here & \"/a.txt\"", source + std::string("Folder not found: 'a.txt'")},
        {"fso.GetFile here & \"/sub\"", source + std::string("File not found: 'sub'")},
        {"fso.DeleteFile here & \"/*.dat\"", source + std::string("File not found: '*.dat'")},
        {"fso.CopyFile here & \"/a.txt\", here & \"/b.txt\", False",
         source + std::string("It is there already: 'b.txt'")},
        {"fso.MoveFile here & \"/a.txt\", here & \"/b.txt\"",
         source + std::string("It is there already: 'b.txt'")},
        {"fso.CopyFile here & \"/*.txt\", here & \"/one\"",
         source + std::string("Several files need a folder as their target: 'one'")},
        {"fso.CopyFolder here & \"/sub\", here & \"/sub/in\"",
         source + std::string("A folder does not go into itself: 'sub'")},
        {"fso.CopyFile here & \"/a.txt\", here & \"/none/a.txt\"",
         source + std::string("File or folder not found: 'none/a.txt'")},
        {"fso.MoveFile here & \"/a.txt\", here & \"/none/\"",
         source + std::string("File or folder not found: 'none/a.txt'")},
        {"fso.OpenTextFile here & \"/a.txt\", 1, False, 1",
         source + std::string("The format of a text is 0 (bytes), -1 (16 bits) or -2 (as it is), "
                              "not 1")},
        {"fso.GetFile(here & \"/a.txt\").Name = \"b.txt\"", "File: It is there already: 'b.txt'"},
        {"fso.GetFile(here & \"/a.txt\").Name = \"sub/x\"", "File: The name is not valid: 'sub/x'"},
        {"x = fso.OpenTextFile(here & \"/a.txt\", 8).AtEndOfStream",
         "TextStream: The file is not open for reading: 'a.txt'"},
        {"fso.CopyFile here & \"/a.txt\", , True", "Argument 2 is missing"},
        {"fso.CreateFolder here & \"/sub\"", source + std::string("It is there already: 'sub'")},
        {"fso.OpenTextFile(here & \"/a.txt\").WriteLine 1",
         "TextStream: The file is not open for writing: 'a.txt'"},
        {"Set f = fso.OpenTextFile(here & \"/a.txt\") : f.SkipLine : x = f.ReadLine",
         "TextStream: The end of the file has been reached: 'a.txt'"},
        {"Set f = fso.OpenTextFile(here & \"/a.txt\") : f.Close : x = f.AtEndOfStream",
         "TextStream: The file is closed: 'a.txt'"},
        {"x = fso.OpenTextFile(here & \"/b.txt\", 8).Read(1)",
         "TextStream: The file is not open for reading: 'b.txt'"},
        {"fso.OpenTextFile(here & \"/a.txt\").Skip -1",
         "TextStream: A count below 0 makes no sense"},
    };
    for (const auto& row : table)
        EXPECT_EQ(detailOf(row.text), row.detail) << row.text;
    EXPECT_EQ(contentOf("a.txt"), "a");
    EXPECT_EQ(contentOf("b.txt"), "b");
}

} // namespace
