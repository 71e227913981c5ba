// Parts of strings, and strings made from others or from characters.

#include "runtime/Arguments.h"
#include "runtime/FunctionTable.h"

UI_MacroVariant MacroAsc(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return wrongArguments();
    return static_cast<signed char>(textOf(argv[0])[0]);
}

UI_MacroVariant MacroChr(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return wrongArguments();
    return SYS_String(static_cast<char>(static_cast<int>(argv[0])), 1);
}

UI_MacroVariant MacroLCase(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return wrongArguments();
    return textOf(argv[0]).MakeLower();
}

UI_MacroVariant MacroUCase(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return wrongArguments();
    return textOf(argv[0]).MakeUpper();
}

UI_MacroVariant MacroStrReverse(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return wrongArguments();
    return textOf(argv[0]).MakeReverse();
}

UI_MacroVariant MacroLTrim(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return wrongArguments();
    return textOf(argv[0]).TrimLeft();
}

UI_MacroVariant MacroRTrim(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return wrongArguments();
    return textOf(argv[0]).TrimRight();
}

UI_MacroVariant MacroTrim(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return wrongArguments();
    return textOf(argv[0]).TrimRight().TrimLeft();
}

// A negative count is a huge one below: the parts are clipped to what there is.

UI_MacroVariant MacroLeft(int argc, UI_MacroVariant* argv) {
    if (argc != 2 || !argv)
        return wrongArguments();
    const SYS_String text = textOf(argv[0]);
    return text.Left(static_cast<unsigned>(static_cast<int>(argv[1])));
}

UI_MacroVariant MacroRight(int argc, UI_MacroVariant* argv) {
    if (argc != 2 || !argv)
        return wrongArguments();
    const SYS_String text = textOf(argv[0]);
    return text.Right(static_cast<unsigned>(static_cast<int>(argv[1])));
}

/// The one function that counts places from 0.
UI_MacroVariant MacroMid(int argc, UI_MacroVariant* argv) {
    if (argc < 2 || argc > 3 || !argv)
        return wrongArguments();
    const SYS_String text = textOf(argv[0]);
    const auto first = static_cast<unsigned>(static_cast<int>(argv[1]));
    if (!IsGiven(argc, argv, 2))
        return text.Mid(first);
    return text.Mid(first, static_cast<unsigned>(static_cast<int>(argv[2])));
}

UI_MacroVariant MacroLen(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return wrongArguments();
    const UI_MacroVariant* value = argv[0].GetRVal();
    if (!value)
        return UI_MacroVariant(0);
    switch (value->GetType()) {
    case vvtString:
        return UI_MacroVariant(value->GetStringVal().GetLength());
    case vvtDouble:
        return UI_MacroVariant(8);
    case vvtInteger:
        return UI_MacroVariant(4);
    case vvtBoolean:
        return UI_MacroVariant(1);
    case vvtEmpty:
    case vvtObject:
    case vvtFunction:
    case vvtReference:
    case vvtArray:
    case vvtMissing:
    case vvtHandle:
    case vvtScript:
    case vvtUnknown:
        return UI_MacroVariant(0);
    }
    return UI_MacroVariant(0);
}

UI_MacroVariant MacroSpace(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return wrongArguments();
    const int count = static_cast<int>(argv[0]);
    if (count < 0)
        return wrongArguments();
    return SYS_String(' ', static_cast<unsigned>(count));
}

UI_MacroVariant MacroString(int argc, UI_MacroVariant* argv) {
    if (argc != 2 || !argv)
        return wrongArguments();
    const int count = static_cast<int>(argv[0]);
    if (count < 0)
        return wrongArguments();
    const UI_MacroVariant* filler = argv[1].GetRVal();
    const char character = filler && filler->GetType() == vvtString
                               ? filler->GetStringVal()[0]
                               : static_cast<char>(static_cast<int>(argv[1]));
    return SYS_String(character, static_cast<unsigned>(count));
}

UI_MacroVariant MacroStrComp(int argc, UI_MacroVariant* argv) {
    if (argc < 2 || argc > 3 || !argv)
        return wrongArguments();
    const SYS_String left = textOf(argv[0]);
    const SYS_String right = textOf(argv[1]);
    const bool foldCase = IsChosen(argc, argv, 2) && static_cast<bool>(argv[2]);
    const int order = foldCase ? left.CompareNoCase(right) : left.Compare(right);
    return (order > 0) - (order < 0);
}
