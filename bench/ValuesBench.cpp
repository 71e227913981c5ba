// Making, copying and computing values.

#include <UI_Macro.h>

#include <benchmark/benchmark.h>

namespace {

void constructInteger(benchmark::State& state) {
    for (auto _ : state) {
        UI_MacroVariant value(42);
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK(constructInteger)->Name("value/construct Integer");

void copyValue(benchmark::State& state, const UI_MacroVariant& source) {
    for (auto _ : state) {
        UI_MacroVariant value(source);
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK_CAPTURE(copyValue, Double, UI_MacroVariant(2.5))->Name("value/copy Double");
BENCHMARK_CAPTURE(copyValue, String, UI_MacroVariant("some text"))->Name("value/copy String");

void assignInteger(benchmark::State& state) {
    UI_MacroVariantParam target(false);
    const UI_MacroVariant source(42);
    for (auto _ : state) {
        target.Assign(source);
        benchmark::DoNotOptimize(target);
    }
}
BENCHMARK(assignInteger)->Name("value/assign to a variable");

// One operator on a pair of operands.
template <class Operation>
void compute(benchmark::State& state, Operation operation, const UI_MacroVariant& left,
             const UI_MacroVariant& right) {
    for (auto _ : state) {
        UI_MacroVariant result = operation(left, right);
        benchmark::DoNotOptimize(result);
    }
}

UI_MacroVariant add(const UI_MacroVariant& left, const UI_MacroVariant& right) {
    return left + right;
}
UI_MacroVariant multiply(const UI_MacroVariant& left, const UI_MacroVariant& right) {
    return left * right;
}
UI_MacroVariant isLess(const UI_MacroVariant& left, const UI_MacroVariant& right) {
    return left < right;
}
UI_MacroVariant isEqual(const UI_MacroVariant& left, const UI_MacroVariant& right) {
    return left == right;
}

BENCHMARK_CAPTURE(compute, addIntegers, add, UI_MacroVariant(1), UI_MacroVariant(2))
    ->Name("operator/+ Integers");
BENCHMARK_CAPTURE(compute, addDoubles, add, UI_MacroVariant(1.5), UI_MacroVariant(2.5))
    ->Name("operator/+ Doubles");
BENCHMARK_CAPTURE(compute, addStrings, add, UI_MacroVariant("left"), UI_MacroVariant("right"))
    ->Name("operator/+ Strings");
BENCHMARK_CAPTURE(compute, multiplyMixed, multiply, UI_MacroVariant(3), UI_MacroVariant(2.5))
    ->Name("operator/* mixed");
BENCHMARK_CAPTURE(compute, lessDoubles, isLess, UI_MacroVariant(1.5), UI_MacroVariant(2.5))
    ->Name("operator/< Doubles");
BENCHMARK_CAPTURE(compute, equalStrings, isEqual, UI_MacroVariant("text"), UI_MacroVariant("text"))
    ->Name("operator/= Strings");

} // namespace
