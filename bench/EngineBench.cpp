// Looking names up, parsing, and running single statements.

#include "BenchEngine.h"
#include "CountAllocations.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int kTurns = 100000;

void lookUpVariable(benchmark::State& state) {
    BenchEngine engine;
    engine.Run(new MemorySource("a = 1 : b = 2 : c = 3 : target = 4 : d = 5"));
    const SYS_StrNoCase name("Target");
    if (!engine.GetParser().LookupVar(name)) {
        state.SkipWithError("the variable is not there");
        return;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(engine.GetParser().LookupVar(name));
}
BENCHMARK(lookUpVariable)->Name("engine/look up a variable");

void parseText(benchmark::State& state) {
    std::string text;
    for (int i = 0; i < 1000; ++i)
        text += "value = (index * 37 + offset) Mod 113\n"
                "If value > limit Then\n total = total + value / 2\nEnd If\n";
    BenchEngine engine;
    const SCL_Pointer<MacroSource> source(new MemorySource(text));
    for (auto _ : state) {
        engine.GetParser().SetSource(source);
        if (!engine.GetParser().Parse())
            state.SkipWithError("the text does not parse");
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}
BENCHMARK(parseText)->Name("engine/parse 4000 lines");

std::string loopOver(const std::string& statement, int turns) {
    return "Function two(a, ByVal b)\n Dim c\n c = a + b\n two = c\nEnd Function\n"
           "Dim list(9)\nlist(2) = 2\nn = 0\nx = 0\nWhile n < " +
           std::to_string(turns) + "\n n = n + 1\n" + statement + "\nWend\n";
}

// The time of one turn of a counting loop with this statement in it, and how many allocations a
// turn costs. A short and a long run differ only in their turns.
void runStatement(benchmark::State& state, const char* statement) {
    BenchEngine engine;
    const SCL_Pointer<MacroSource> shortRun(new MemorySource(loopOver(statement, 1000)));
    const SCL_Pointer<MacroSource> longRun(new MemorySource(loopOver(statement, kTurns)));
    engine.Run(longRun); // fills the pools

    const size_t start = GetAllocationCount();
    engine.Run(shortRun);
    const size_t middle = GetAllocationCount();
    engine.Run(longRun);
    const size_t end = GetAllocationCount();

    for (auto _ : state)
        engine.Run(longRun);
    state.SetItemsProcessed(state.iterations() * kTurns);
    state.counters["allocations"] =
        (static_cast<double>(end - middle) - static_cast<double>(middle - start)) / (kTurns - 1000);
}
BENCHMARK_CAPTURE(runStatement, empty, "")->Name("turn/empty");
BENCHMARK_CAPTURE(runStatement, add, "x = x + 1")->Name("turn/x = x + 1");
BENCHMARK_CAPTURE(runStatement, real, "x = x * 0.5 + n / 3")->Name("turn/x = x * 0.5 + n / 3");
BENCHMARK_CAPTURE(runStatement, branch, "If x > n Then x = 0 Else x = x + 2")
    ->Name("turn/If x > n Then ... Else ...");
BENCHMARK_CAPTURE(runStatement, call, "x = two(n, x + 1)")->Name("turn/x = two(n, x + 1)");
BENCHMARK_CAPTURE(runStatement, element, "list(3) = list(2)")->Name("turn/list(3) = list(2)");

} // namespace
