// Calls of automation objects beside calls of built-in functions.

#include "BenchEngine.h"

#include <AutomationObject.h>
#include <Scripting.h>

#include <benchmark/benchmark.h>

namespace {

constexpr int kTurns = 100000;

class Probe final : public automation::Object {
public:
    const automation::Members& GetMembers() const override {
        using P = Probe;
        static const automation::Members members(
            "Probe", {automation::Property<&P::GetLevel, &P::SetLevel>("Level"),
                      automation::Method<&P::Larger>("Larger", 2)});
        return members;
    }

private:
    LONG GetLevel() const { return m_Level; }
    void SetLevel(const automation::Arguments& arguments) {
        m_Level = static_cast<LONG>(arguments.Integer(0));
    }
    double Larger(const automation::Arguments& arguments) {
        const double left = arguments.Real(0);
        const double right = arguments.Real(1);
        return left > right ? left : right;
    }

    LONG m_Level = 7;
};

// The time of one turn of a counting loop with this statement in it; "empty" is the loop alone.
void runStatement(benchmark::State& state, const char* statement) {
    BenchEngine engine;
    automation::RegisterClass("Bench.Probe", [] { return new Probe; });
    scripting::Register();
    const SCL_Pointer<MacroSource> source(
        new MemorySource("Set obj = CreateObject(\"Bench.Probe\")\n"
                        "Set dict = CreateObject(\"Scripting.Dictionary\")\n"
                        "dict(\"key\") = 1\nn = 0\nWhile n < " +
                        std::to_string(kTurns) + "\n n = n + 1\n" + statement + "\nWend\n"));
    for (auto _ : state)
        engine.Run(source);
    state.SetItemsProcessed(state.iterations() * kTurns);
    scripting::Revoke();
    automation::RevokeClass("Bench.Probe");
}
BENCHMARK_CAPTURE(runStatement, empty, "")->Name("automation/empty");
BENCHMARK_CAPTURE(runStatement, builtIn, "x = Max(n, 5)")->Name("automation/x = Max(n, 5)");
BENCHMARK_CAPTURE(runStatement, text, "x = Left(\"text\", 2)")
    ->Name("automation/x = Left(\"text\", 2)");
BENCHMARK_CAPTURE(runStatement, method, "x = obj.Larger(n, 5)")
    ->Name("automation/x = obj.Larger(n, 5)");
BENCHMARK_CAPTURE(runStatement, get, "x = obj.Level")->Name("automation/x = obj.Level");
BENCHMARK_CAPTURE(runStatement, put, "obj.Level = n")->Name("automation/obj.Level = n");
BENCHMARK_CAPTURE(runStatement, item, "x = dict(\"key\")")->Name("automation/x = dict(\"key\")");
BENCHMARK_CAPTURE(runStatement, putItem, "dict(\"key\") = n")->Name("automation/dict(\"key\") = n");

} // namespace
