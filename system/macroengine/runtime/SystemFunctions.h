#pragma once

#include <UI_MacroVariant.h>

// The built-in functions that reach beyond the macro: the process, files, dialogs, objects. Each
// tests its argument count and raises 34 for any other.

UI_MacroVariant MacroCommand(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroCreateObject(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroCurDir(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroDir(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroDoEvents(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroEnviron(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroEOF(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroGetObject(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroGetRef(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroGetTmpFileName(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroLoadImage(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroMkDir(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroMoveFile(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroMsgBox(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroScriptEngine(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroScriptEngineBuildVersion(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroScriptEngineMajorVersion(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroScriptEngineMinorVersion(int argc, UI_MacroVariant* argv);
