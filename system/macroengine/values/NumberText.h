#pragma once

// Numbers as text and text as numbers, the way the language converts them. Independent of the
// locale, and quick: every output of a number comes through here.

#include <SYS_String.h>

using namespace kel_ns;

/// Decimal text of the low 32 bits, read as signed.
SYS_String MacroIntegerText(__int64 value);
/// The text that "%g" gives in the C locale.
SYS_String MacroRealText(double value);
/// The number at the front of the text, 0 if there is none.
double MacroRealValue(const SYS_String& text);
/// The same for an integer; saturates at 32 bits.
__int64 MacroIntegerValue(const SYS_String& text);

/// Rounds half away from zero; NaN and what does not fit give the smallest integer.
__int64 MacroRoundReal(double value);
/// Cuts the fraction off; NaN and what does not fit give the smallest integer.
__int64 MacroTruncateReal(double value);
