// What a debugger may cost: the time of a re-parse, and of a run under a source that never stops.

#include "DebugFixture.h"
#include "EditedSource.h"

#include <ctime>

namespace {

/// Of the processor: other programs run on the machine, too.
double secondsOf(const std::function<void()>& action) {
    const std::clock_t start = std::clock();
    action();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

double bestOf(int attempts, const std::function<void()>& action) {
    double best = secondsOf(action);
    while (--attempts > 0)
        best = std::min(best, secondsOf(action));
    return best;
}

/// Asks a set of breakpoints, as a debugger does, and keeps count of the statements.
class WatchingSource : public MemorySource {
public:
    using MemorySource::MemorySource;

    bool IsBreakPoint(long line) override {
        ++asked;
        return breakpoints.contains(line);
    }
    bool BreakOnError(MacroException&) override { return false; }

    std::set<long> breakpoints;
    long asked = 0;
};

class DebuggerSpeedTest : public DebugTest {};

} // namespace

TEST_F(DebuggerSpeedTest, OneLineOfManyIsParsedAgainAtOnce) {
    constexpr int kBlocks = 10000;
    Lines lines;
    for (int i = 0; i < kBlocks; ++i) {
        const std::string number = std::to_string(i);
        for (const std::string& line :
             {"' part " + number, std::string("If x > " + number + " Then"),
              std::string("  For k = 1 To 3"), std::string("    x = x + k * (y - 2)"),
              std::string("  Next"), std::string("End If"), std::string("Sub s" + number + "(p)"),
              std::string("  Log.Add p, \"text\""), std::string("End Sub"), std::string()})
            lines.push_back(line);
    }
    const SCL_Pointer<EditedSource> source = new EditedSource(lines, Feed::Whole);
    auto& parser = static_cast<MacroParser&>(processor());
    parser.SetSource(source);
    const double whole = secondsOf([&] { ASSERT_TRUE(parser.Parse()); });
    double slowest = 0;
    for (const int line : {3, 7, 500003, 99993, 50007, 10, 99999})
        slowest = std::max(slowest, bestOf(3, [&] {
                               SCL_Vector<MacroParser::LineChange> change{{2, line}};
                               ASSERT_TRUE(parser.Reparse(change));
                           }));
    RecordProperty("whole_ms", std::to_string(whole * 1e3));
    RecordProperty("line_ms", std::to_string(slowest * 1e3));
    std::cout << "whole " << whole * 1e3 << " ms, one line " << slowest * 1e3 << " ms\n";
    EXPECT_LT(slowest, whole / 2);
}

TEST_F(DebuggerSpeedTest, ASourceThatNeverStopsCostsLittle) {
    const char* text = "s = 0\n"
                       "For i = 1 To 300000\n"
                       "  s = s + i Mod 7\n"
                       "  If s > 1000 Then\n"
                       "    s = s - half(s)\n"
                       "  End If\n"
                       "Next\n"
                       "Function half(n)\n"
                       "  half = n \\ 2\n"
                       "End Function\n";
    const auto plain = textSource(text);
    const SCL_Pointer<WatchingSource> debugged = new WatchingSource(text);
    const double alone = bestOf(5, [&] { execute(plain); });
    const double watched = bestOf(5, [&] { execute(debugged); });
    EXPECT_GT(debugged->asked, 1000000);
    std::cout << "plain " << alone * 1e3 << " ms, debugged " << watched * 1e3 << " ms, factor "
              << watched / alone << "\n";
    EXPECT_LT(watched, 2 * alone);
}
