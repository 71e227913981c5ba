// Recording lines to a file, beside a C program that makes the same seeks and writes, and a drag
// of which compression keeps two lines.

#include "BenchEngine.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int kLines = 1000000;
constexpr int kDragged = 100000;

/// The name of a new file, which goes with this.
class ScratchFile {
public:
    ScratchFile() {
        const int file = ::mkstemp(m_Name);
        if (file < 0)
            std::abort();
        std::fclose(::fdopen(file, "w"));
    }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    ~ScratchFile() { std::remove(m_Name); }

    const char* GetName() const { return m_Name; }

private:
    char m_Name[32] = "/tmp/recordXXXXXX";
};

const char* lineOf(int number, char (&line)[64]) {
    std::snprintf(line, sizeof line, "Document.MoveTo %d, %d", number, number * 2);
    return line;
}

void recordLines(benchmark::State& state) {
    BenchEngine engine;
    const ScratchFile file;
    char line[64];
    for (auto _ : state) {
        engine.GetMacro().StartRecording(new MacroOutputFile(file.GetName()));
        for (int i = 0; i < kLines; ++i)
            MacroSupport::Record(lineOf(i, line), 0, 0);
        engine.GetMacro().StopRecording();
    }
    state.SetItemsProcessed(state.iterations() * kLines);
}
BENCHMARK(recordLines)->Name("record/1000000 lines to a file")->Unit(benchmark::kMillisecond);

void recordLinesInC(benchmark::State& state) {
    const ScratchFile scratch;
    char line[64];
    for (auto _ : state) {
        std::FILE* file = std::fopen(scratch.GetName(), "w");
        long offset = 0;
        for (int i = 0; i < kLines; ++i) {
            if (std::fseek(file, offset, SEEK_SET) != 0 ||
                std::fprintf(file, "%s\n", lineOf(i, line)) < 0)
                state.SkipWithError("the file takes no lines");
            offset = std::ftell(file);
        }
        std::fclose(file);
    }
    state.SetItemsProcessed(state.iterations() * kLines);
}
BENCHMARK(recordLinesInC)->Name("record/the same in C")->Unit(benchmark::kMillisecond);

// What a drag takes: the time of a line, and the bytes that are held when it has ended.
void recordDrag(benchmark::State& state) {
    BenchEngine engine;
    const ScratchFile file;
    engine.GetMacro().StartRecording(new MacroOutputFile(file.GetName()));
    MacroSupport* processor = MacroSupport::GetProcessor();
    processor->SetCompressionMode(true);
    char line[64];
    MacroSupport::Record(lineOf(0, line), processor->GetCompressID(), 0); // fills the pools
    const auto before = ::mallinfo2();
    for (auto _ : state) {
        const int gesture = processor->GetCompressID();
        for (int i = 0; i < kDragged; ++i)
            MacroSupport::Record(lineOf(i, line), gesture, 0);
    }
    const auto after = ::mallinfo2();
    state.SetItemsProcessed(state.iterations() * kDragged);
    state.counters["bytes held"] = static_cast<double>(after.uordblks + after.hblkhd) -
                                   static_cast<double>(before.uordblks + before.hblkhd);
}
BENCHMARK(recordDrag)->Name("record/drag of 100000 lines")->Unit(benchmark::kMillisecond);

} // namespace
