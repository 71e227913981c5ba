// The command line of sketch.

#include "SketchFixture.h"

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
    EXPECT_NE(gestures.out.find("  circle X Y RADIUS  "), std::string::npos) << gestures.out;
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
