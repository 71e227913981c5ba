#pragma once

// What a host sets for all processors: its own services, and bounds on what macros may use.

#include <SYS_String.h>

#include <functional>

struct ITypeLib;

using namespace kel_ns;

/// Services that a host may put in the place of the engine's own. Process-wide; a null member
/// keeps the default. Called on the thread that runs the macro.
struct MacroHostHooks {
    /// Shows a message and gives the number of the button: OK 1, Cancel 2, Abort 3, Retry 4, Ignore
    /// 5, Yes 6, No 7. `flags` are those of MsgBox: the lowest four bits the set of buttons, bits 8
    /// and 9 which of them is the default. Without it title and text go to the debug output, and
    /// the answer is the default button.
    std::function<int(const SYS_String& text, int flags, const SYS_String& title)> messageBox;
    /// What the function DoEvents does; nothing by itself.
    std::function<void()> doEvents;
    /// Each turn of a paused run; without it the engine sleeps a millisecond.
    std::function<void()> idle;
    /// Before each statement (zero-based line), and every 1024th step of an evaluation. May call
    /// `Stop()`, change the mode, or throw `MacroStopException`.
    std::function<void(long line)> statement;
    /// Fills in a locale value; false takes the default.
    std::function<bool(int id, SYS_String& value)> locale;
    /// The folder "Exec", "Logs" or another; see SFM_FilePath::GetDefaultPath, which an empty
    /// answer takes.
    std::function<SYS_String(const char* name)> defaultPath;
    /// See SFM_FilePath::GetApplicationName, which an empty answer takes.
    std::function<SYS_String()> applicationName;
    /// Takes debug text as it is, also messages of failed assertions unless the host handles them.
    std::function<void(const char* text)> debugOutput;
    /// The library whose constants macros know by name, asked for each name that is no object and
    /// no built-in function. The host keeps it alive.
    std::function<ITypeLib*()> typeLib;
};

/// Bounds on what a macro may use. Beyond them a macro ends with "out of memory".
struct MacroLimits {
    int stringBytes = 0x3FFFFFFF; ///< of one string
    int arrayElements = 16777216; ///< of one array, over all its levels
    int frames = 500000;          ///< open procedure calls
    int nestedRuns = 200;         ///< runs inside runs, which use the native stack
};
