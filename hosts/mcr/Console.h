#pragma once

#include <ClassDescriptors.h>
#include <UI_MacroEval.h>

/// The object through which macros talk to the terminal: WriteLine, Write, ReadLine and Width.
class Console : public MacroEval {
public:
    Console();

    using MacroEval::operator=;

    static cMacroAppClass* GetMacroClass();
    const ScriptDebugger::iApplicationClass* GetMacroDescriptor() const override;
    UI_MacroVariant Evaluate(const char* name, UI_MacroVariant* args, int argc) override;

    /// Writes out what is buffered. False if standard output did not take all of it, now or
    /// earlier.
    static bool Flush();
    /// Ends the line if macros have left one open, for others who write to standard output.
    static void StartLine();

private:
    UI_MacroVariant write(int argc, UI_MacroVariant* args);
    UI_MacroVariant writeLine(int argc, UI_MacroVariant* args);
    UI_MacroVariant readLine(int argc, UI_MacroVariant* args);
    UI_MacroVariant width(int argc, UI_MacroVariant* args);

    static bool s_LineIsOpen;
};
