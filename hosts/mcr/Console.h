#pragma once

#include <UI_MacroEval.h>

/// The object through which macros talk to the terminal: WriteLine, Write, ReadLine and Width.
class Console : public MacroEval {
public:
    Console();

    using MacroEval::operator=;

    UI_MacroVariant Evaluate(const char* name, UI_MacroVariant* args, int argc) override;
    bool IsPropertyGet(const char* name) override;

    /// Writes out what is buffered. False if standard output did not take all of it, now or
    /// earlier.
    static bool Flush();
    /// Ends the line if macros have left one open, for others who write to standard output.
    static void StartLine();

private:
    using Method = UI_MacroVariant (Console::*)(UI_MacroVariant* args, int argc);
    struct Member {
        const char* name;
        Method method;
        bool isProperty;
    };

    static const Member* findMember(const char* name);
    UI_MacroVariant write(UI_MacroVariant* args, int argc);
    UI_MacroVariant writeLine(UI_MacroVariant* args, int argc);
    UI_MacroVariant readLine(UI_MacroVariant* args, int argc);
    UI_MacroVariant width(UI_MacroVariant* args, int argc);

    static bool s_LineIsOpen;
};
