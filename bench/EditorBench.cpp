// What an editor asks for: the pieces of a text, and whether files are macros.

#include "BenchEngine.h"

#include <benchmark/benchmark.h>

namespace {

std::string longText(const char* lines, int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += lines;
    return text;
}

void tokenize(benchmark::State& state, const char* lines) {
    BenchEngine engine;
    const std::string text = longText(lines, 10000);
    CStringA piece;
    for (auto _ : state) {
        UI_Macro& tokenizer = engine.GetMacro();
        tokenizer.SetInputString(text.c_str());
        do {
            benchmark::DoNotOptimize(tokenizer.GetNextToken(piece));
        } while (!tokenizer.IsAtEnd());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}
BENCHMARK_CAPTURE(tokenize, code,
                  "' Adds what lies above the limit.\n"
                  "value = (index * 37 + offset) Mod 113\n"
                  "If value > limit Then\n\ttotal = total + value / 2.5\nEnd If\n"
                  "Console.WriteLine \"total: \", total, vbCrLf\n")
    ->Name("editor/pieces of code")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(tokenize, dense, "a=b+c*(d-e)/f:g(h,i).j=&hFF&\n")
    ->Name("editor/pieces of dense code")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(tokenize, rem, "rem words of a comment that goes on\n")
    ->Name("editor/pieces of rem lines")
    ->Unit(benchmark::kMillisecond);

void inspect(benchmark::State& state) {
    BenchEngine engine;
    std::string lines;
    for (int i = 0; i < 50; ++i) {
        const std::string number = std::to_string(i);
        lines += "' Does a part of the work.\nSub work" + number +
                 "(a, ByVal b)\n\tc = a + b * 2\nEnd Sub\n";
    }
    const SYS_String text(lines);
    for (auto _ : state) {
        if (!engine.GetMacro().InspectMacroText(text, "bench").parses)
            state.SkipWithError("the text does not parse");
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * lines.size()));
}
BENCHMARK(inspect)->Name("editor/inspect 200 lines");

} // namespace
