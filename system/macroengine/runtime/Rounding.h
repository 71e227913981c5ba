#pragma once

#include <SCL_Types.h>

#include "values/NumberText.h"

/// To the nearest integer, ties to the even one.
inline __int64 RoundToInteger(double x) {
    const __int64 whole = MacroTruncateReal(x);
    auto bits = static_cast<unsigned long long>(whole); // steps past the ends wrap around
    const bool isOdd = whole % 2 != 0;
    const double fraction = x - static_cast<double>(whole);
    if (x >= 0 && (fraction > 0.5 || (fraction == 0.5 && isOdd)))
        ++bits;
    else if (x < 0 && (fraction < -0.5 || (fraction == -0.5 && isOdd)))
        --bits;
    return static_cast<__int64>(bits);
}
