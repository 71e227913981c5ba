#pragma once

#include <UI_MacroVariant.h>

// The built-in functions. Each tests its argument count and raises 34 for any other.

UI_MacroVariant MacroAbs(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroArray(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroAsc(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroAtn(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroCBool(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroCByte(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroCDbl(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroCInt(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroCLng(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroCSng(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroCStr(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroChr(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroCommand(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroCos(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroCreateObject(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroCurDir(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroDir(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroDoEvents(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroEnviron(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroEOF(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroExp(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroFilter(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroFix(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroFormatNumber(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroFormatPercent(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroGetTmpFileName(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroHex(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroInStr(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroInStrRev(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroInt(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroIsArray(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroIsEmpty(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroIsNull(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroIsNumeric(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroIsObject(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroJoin(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroGetObject(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroGetRef(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroLBound(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroLCase(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroLeft(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroLen(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroLoadImage(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroLog(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroLTrim(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroMax(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroMid(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroMin(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroMkDir(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroMoveFile(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroMsgBox(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroOct(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroReplace(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroRgb(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroRight(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroRnd(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroRound(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroRTrim(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroScriptEngine(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroScriptEngineBuildVersion(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroScriptEngineMajorVersion(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroScriptEngineMinorVersion(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroSgn(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroSin(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroSpace(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroSplit(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroSqr(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroStrComp(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroStrReverse(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroString(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroTan(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroTrim(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroTypeName(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroUBound(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroUCase(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroVarType(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroStr(int argc, UI_MacroVariant* argv);
UI_MacroVariant MacroVal(int argc, UI_MacroVariant* argv);

/// True for a function that an evaluation without side effects must not call.
bool IsMacroAction(MacroFunctionHandler handler);
