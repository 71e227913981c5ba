// Functions of numbers. None tests its domain: infinities and NaN pass through.

#include <algorithm>
#include <cmath>
#include <limits>

#include "runtime/Arguments.h"
#include "runtime/FunctionTable.h"
#include "runtime/OuterWorld.h"
#include "runtime/Random.h"
#include "runtime/Rounding.h"

namespace {

template <class Function> UI_MacroVariant ofOneReal(int argc, UI_MacroVariant* argv, Function f) {
    if (argc != 1 || !argv)
        return wrongArguments();
    return static_cast<double>(f(static_cast<double>(argv[0])));
}

/// What does not fit into 32 bits gives the smallest such number.
UI_MacroVariant inRange(double whole) {
    constexpr double limit = 2147483648.0;
    return whole >= -limit && whole < limit ? static_cast<int>(whole)
                                            : std::numeric_limits<int>::min();
}

double powerOfTen(int exponent) {
    double result = 1;
    for (double square = 10; exponent > 0; exponent /= 2, square *= square)
        if (exponent % 2 != 0)
            result *= square;
    return result;
}

int colorPart(const UI_MacroVariant& argument) {
    const int part = static_cast<int>(argument);
    return part < 0 || part > 255 ? 255 : part;
}

} // namespace

UI_MacroVariant MacroAbs(int argc, UI_MacroVariant* argv) {
    return ofOneReal(argc, argv, [](double x) { return std::fabs(x); });
}

UI_MacroVariant MacroAtn(int argc, UI_MacroVariant* argv) {
    return ofOneReal(argc, argv, [](double x) { return std::atan(x); });
}

UI_MacroVariant MacroCos(int argc, UI_MacroVariant* argv) {
    return ofOneReal(argc, argv, [](double x) { return std::cos(x); });
}

UI_MacroVariant MacroExp(int argc, UI_MacroVariant* argv) {
    return ofOneReal(argc, argv, [](double x) { return std::exp(x); });
}

UI_MacroVariant MacroLog(int argc, UI_MacroVariant* argv) {
    return ofOneReal(argc, argv, [](double x) { return std::log(x); });
}

UI_MacroVariant MacroSin(int argc, UI_MacroVariant* argv) {
    return ofOneReal(argc, argv, [](double x) { return std::sin(x); });
}

UI_MacroVariant MacroSqr(int argc, UI_MacroVariant* argv) {
    return ofOneReal(argc, argv, [](double x) { return std::sqrt(x); });
}

UI_MacroVariant MacroTan(int argc, UI_MacroVariant* argv) {
    return ofOneReal(argc, argv, [](double x) { return std::tan(x); });
}

UI_MacroVariant MacroMax(int argc, UI_MacroVariant* argv) {
    if (argc != 2 || !argv)
        return wrongArguments();
    const auto a = static_cast<double>(argv[0]);
    const auto b = static_cast<double>(argv[1]);
    return b > a ? b : a;
}

UI_MacroVariant MacroMin(int argc, UI_MacroVariant* argv) {
    if (argc != 2 || !argv)
        return wrongArguments();
    const auto a = static_cast<double>(argv[0]);
    const auto b = static_cast<double>(argv[1]);
    return b > a ? a : b;
}

UI_MacroVariant MacroFix(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return wrongArguments();
    return inRange(std::trunc(static_cast<double>(argv[0])));
}

UI_MacroVariant MacroInt(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return wrongArguments();
    return inRange(std::floor(static_cast<double>(argv[0])));
}

/// Looks at the integer, so that a small fraction has no sign.
UI_MacroVariant MacroSgn(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return wrongArguments();
    const int x = static_cast<int>(argv[0]);
    return (x > 0) - (x < 0);
}

UI_MacroVariant MacroRound(int argc, UI_MacroVariant* argv) {
    if (argc < 1 || argc > 2 || !argv)
        return wrongArguments();
    const auto x = static_cast<double>(argv[0]);
    const int digits = IsGiven(argc, argv, 1) ? std::clamp(static_cast<int>(argv[1]), 0, 6) : 0;
    if (digits == 0)
        return static_cast<double>(RoundToInteger(x));
    const double scale = powerOfTen(digits);
    return static_cast<double>(RoundToInteger(x * scale)) / scale;
}

UI_MacroVariant MacroRnd(int argc, UI_MacroVariant* argv) {
    if (argc < 0 || argc > 1 || (argc == 1 && !argv))
        return wrongArguments();
    RefuseWhileLooking();
    MacroRandom& random = MacroRandom::Instance();
    const int seed = IsGiven(argc, argv, 0) ? static_cast<int>(argv[0]) : 1;
    if (seed > 0)
        return random.Next();
    if (seed == 0)
        return random.Last();
    random.Seed(seed);
    return random.Next();
}

UI_MacroVariant MacroRgb(int argc, UI_MacroVariant* argv) {
    if (argc != 3 || !argv)
        return wrongArguments();
    const int red = colorPart(argv[0]);
    const int green = colorPart(argv[1]);
    const int blue = colorPart(argv[2]);
    return red + green * 256 + blue * 65536;
}
