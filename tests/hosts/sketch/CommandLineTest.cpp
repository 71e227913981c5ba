// The command line of sketch.

#include "SketchFixture.h"

#include <sstream>

namespace {

using SketchCommandLine = Sketch;

TEST_F(SketchCommandLine, TellsItsVersionAndItsGestures) {
    EXPECT_EQ(sketch({"--version"}).out, "sketch " TEST_VERSION "\n");
    const ProgramResult help = sketch({"--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* command : {"play", "record", "prompt"})
        EXPECT_NE(help.out.find(std::string("\n  ") + command + " "), std::string::npos) << command;
    const ProgramResult gestures = sketch({"record", "--help"});
    EXPECT_EQ(gestures.status, 0);
    std::istringstream table(
        gestures.out.substr(gestures.out.find("Gestures, one a line:\n") + 22));
    const std::string page = ReadWholeFile(TEST_PROJECT_DIR "/hosts/sketch/README.md");
    int count = 0;
    for (std::string word, rest; table >> word && std::getline(table, rest); ++count)
        EXPECT_NE(page.find("`" + word), std::string::npos) << word;
    EXPECT_GT(count, 20);
}

TEST_F(SketchCommandLine, RefusesWrongUsageAndUnusableFilesWithStatus2) {
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
