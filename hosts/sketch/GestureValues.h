#pragma once

#include "GestureWords.h"
#include "Recorder.h"

// From the words of a gesture to values, each with the text that the recorded macro has for it.
// What cannot be read is a GestureError.

RecordedValue NumberValue(const GestureWord& word);
RecordedValue TextValue(const GestureWord& word);
RecordedValue FlagValue(const GestureWord& word);
/// A colour by its name (`tomato`, `none`) or as `#rrggbb`.
RecordedValue ColorValue(const GestureWord& word);

/// A property that the class of the object, or a parent of it, declares.
struct FieldInfo {
    std::string name; // as it is declared
    std::string type;
};

/// Finds a property by its name, ignoring case, in what the object tells of its class.
FieldInfo FindField(const MacroEval& object, const std::string& name);
/// Whether the object has a method of exactly that name.
bool HasMethod(const MacroEval& object, const char* name);
/// The value as the type of the field wants it.
RecordedValue FieldValue(const FieldInfo& field, const GestureWord& word);
