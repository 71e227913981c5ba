// The functions of long texts, and texts that grow.

#include "BenchEngine.h"

#include <benchmark/benchmark.h>

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

} // namespace
