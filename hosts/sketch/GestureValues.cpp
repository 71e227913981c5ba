#include "GestureValues.h"

#include "App.h"
#include "Values.h"

#include <UI_MacroProcessor.h>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

using ScriptDebugger::iApplicationClass;

bool readHex(const std::string& text, int& color) {
    unsigned code = 0;
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data() + 1, end, code, 16);
    if (text.size() != 7 || read.ec != std::errc() || read.ptr != end)
        return false;
    color = static_cast<int>((code & 0xFF) << 16 | (code & 0xFF00) | code >> 16);
    return true;
}

/// The engine knows the named colours; it has them as constants for macros.
bool readName(const std::string& text, int& color) {
    const std::string name = "vbColor" + text;
    const UI_MacroVariant* constant =
        MacroSupport::GetProcessor()->LookupVar(SYS_String(name.c_str()));
    if (!constant || !constant->isConstant())
        return false;
    color = static_cast<int>(*constant);
    return true;
}

} // namespace

RecordedValue NumberValue(const GestureWord& word) {
    double number = 0;
    const char* end = word.text.data() + word.text.size();
    const auto read = std::from_chars(word.text.data(), end, number);
    if (word.text.empty() || read.ec != std::errc() || read.ptr != end || !std::isfinite(number))
        throw GestureError("'" + word.text + "' is not a number");
    return {number, NumberText(number)};
}

RecordedValue TextValue(const GestureWord& word) {
    return {FromText(word.text), Quoted(word.text)};
}

RecordedValue FlagValue(const GestureWord& word) {
    if (word.Is("on") || word.Is("yes"))
        return {true, "True"};
    if (word.Is("off") || word.Is("no"))
        return {false, "False"};
    throw GestureError("'" + word.text + "' must be on or off");
}

RecordedValue ColorValue(const GestureWord& word) {
    int color = kNoColor;
    const bool isKnown =
        word.text == "none" ||
        (word.text.starts_with('#') ? readHex(word.text, color) : readName(word.text, color));
    if (!isKnown)
        throw GestureError("there is no colour '" + word.text + "'");
    return {color, App::ColorText(color)};
}

FieldInfo FindField(const MacroEval& object, const std::string& name) {
    for (const iApplicationClass* c = object.GetMacroDescriptor(); c; c = c->GetParentClass()) {
        for (unsigned i = 0; i < c->GetPropertiesCount(); ++i) {
            const ScriptDebugger::iProperty& property = *c->GetProperty(i);
            const bool isField = !property.IsReadOnly() && property.GetRequiredArguments() == 0;
            if (isField && property.GetName().CompareNoCase(name.c_str()) == 0)
                return {property.GetName().c_str(), property.GetResultType().c_str()};
        }
    }
    throw GestureError("there is no field '" + name + "'");
}

bool HasMethod(const MacroEval& object, const char* name) {
    for (const iApplicationClass* c = object.GetMacroDescriptor(); c; c = c->GetParentClass())
        for (unsigned i = 0; i < c->GetMethodsCount(); ++i)
            if (c->GetMethod(i)->GetName() == name)
                return true;
    return false;
}

RecordedValue FieldValue(const FieldInfo& field, const GestureWord& word) {
    if (field.type == MacroEval::TypeNameReal || field.type == MacroEval::TypeNameInt)
        return NumberValue(word);
    if (field.type == MacroEval::TypeNameBoolean)
        return FlagValue(word);
    if (field.type == kTypeNameColor)
        return ColorValue(word);
    return TextValue(word);
}
