// The functions of long texts, texts that grow, and the lines of files.

#include "BenchEngine.h"

#include <benchmark/benchmark.h>

#include <filesystem>

namespace {

// A megabyte of lines of 32 bytes, in `text`, and its lines, in `lines`.
const char* const kPrepare = "text = Replace(String(32768, \"x\"), \"x\", "
                             "\"some words, a number 1234 and so\" & vbLf)\n"
                             "lines = Split(text, vbLf)\n";

// Runs a statement on the megabyte. The time of making the megabyte is measured alone as "none".
void runOnMegabyte(benchmark::State& state, const char* statement) {
    BenchEngine engine;
    const SCL_Pointer<MacroSource> source(new MemorySource(std::string(kPrepare) + statement));
    for (auto _ : state)
        engine.Run(source);
}
BENCHMARK_CAPTURE(runOnMegabyte, none, "")->Name("text/none")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(runOnMegabyte, inStr, "r = InStr(text, \"missing\")")
    ->Name("text/InStr")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(runOnMegabyte, replace, "r = Replace(text, \"a\", \"bb\")")
    ->Name("text/Replace")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(runOnMegabyte, split, "r = Split(text, \" \")")
    ->Name("text/Split")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(runOnMegabyte, join, "r = Join(lines, \"; \")")
    ->Name("text/Join")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(runOnMegabyte, filter, "r = Filter(lines, \"1234\")")
    ->Name("text/Filter")
    ->Unit(benchmark::kMillisecond);

void append(benchmark::State& state, const char* statement) {
    BenchEngine engine;
    const SCL_Pointer<MacroSource> source(new MemorySource(
        std::string("s = \"\"\nc = \"x\"\nFor i = 1 To 1000000\n") + statement + "\nNext\n"));
    for (auto _ : state)
        engine.Run(source);
}
BENCHMARK_CAPTURE(append, one, "s = s & c")
    ->Name("text/1000000 x s = s & c")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(append, several, "s = s & c & i & \",\"")
    ->Name("text/1000000 x s = s & c & i & \",\"")
    ->Unit(benchmark::kMillisecond);

// The same file is written first, then read.
void lines(benchmark::State& state, const char* open, const char* loop) {
    BenchEngine engine;
    const std::string file = std::filesystem::temp_directory_path() / "kel_mcr_bench.txt";
    const SCL_Pointer<MacroSource> source(
        new MemorySource("Open \"" + file + "\" For " + open + " As #1\n" + loop + "\n"));
    for (auto _ : state)
        engine.Run(source);
}
BENCHMARK_CAPTURE(lines, print, "Output", "For i = 1 To 1000000\nPrint #1, \"a line\"\nNext")
    ->Name("files/1000000 x Print #")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(lines, input, "Input", "Do Until EOF(1)\nInput #1, x, y\nLoop")
    ->Name("files/2000000 x Input #")
    ->Unit(benchmark::kMillisecond);

} // namespace
