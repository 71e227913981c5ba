#pragma once

#include <UI_MacroVariant.h>

#include <string>

/// The type text of members that hold a colour.
inline constexpr const char* kTypeNameColor = "Color";

// Between the values of macros and those of the drawing. What does not fit is refused; `what`
// names the value in the message.

/// The nearest multiple of a hundredth. Positions are kept so, which makes sums of them exact.
double ToGrid(double value);

/// A number of the page: on the grid, within a million either way.
double ToNumber(const UI_MacroVariant& value, const char* what);
/// The same, above 0.
double ToSize(const UI_MacroVariant& value, const char* what);
int ToWhole(const UI_MacroVariant& value, const char* what, int least, int most);
/// A colour, or `vbNoColor`.
int ToColor(const UI_MacroVariant& value, const char* what);
bool ToFlag(const UI_MacroVariant& value, const char* what);
std::string ToText(const UI_MacroVariant& value, const char* what);
/// "left", "center" or "right".
std::string ToAlign(const UI_MacroVariant& value);
/// Whether a call has this argument, and a value for it.
bool IsGiven(int argc, const UI_MacroVariant* args, int index);

UI_MacroVariant FromText(const std::string& text);

/// The shortest decimal text that reads as this number, whatever the locale is.
std::string NumberText(double value);
/// How a macro writes this text.
std::string Quoted(const std::string& text);
