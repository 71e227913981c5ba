#pragma once

#include <UI_MacroEval.h>

#include <string>
#include <vector>

/// An argument as the user gave it, and as the recorded macro writes it.
struct RecordedValue {
    UI_MacroVariant value;
    std::string text;
};

/// Carries out what the user does, by the same members that macros use, and records it. A command
/// that is refused is not recorded.
class Recorder {
public:
    /// Calls with the same id, which is not 0, are one gesture: only its first and its last line
    /// are kept. So each of them must lead from the first to where it stands by itself.
    void Call(MacroEval& object, const char* member, std::vector<RecordedValue> arguments,
              int id = 0);
    void Set(MacroEval& object, const char* property, const RecordedValue& value);
    /// The same for a property with an argument.
    void SetItem(MacroEval& object, const char* property, const RecordedValue& argument,
                 const RecordedValue& value);

    // Of a dialog. The line that opens it is recorded when it is open, and before all that happens
    // in it.
    void BeginDialog(const char* name);
    void EndDialog();

private:
    class Pending;

    Pending* m_Pending = nullptr; // the innermost call under way
};
