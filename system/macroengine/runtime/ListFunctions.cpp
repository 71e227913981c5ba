// Strings and lists of strings.

#include "runtime/Arguments.h"
#include "runtime/FunctionTable.h"
#include "runtime/TextSearch.h"
#include "values/ArrayLimits.h"

#include <algorithm>
#include <string_view>

namespace {

/// The pieces between delimiters. From the last piece that the limit allows, all is one piece.
UI_MacroArray cut(const SYS_String& text, std::string_view searched, char delimiter, int limit) {
    __int64 count = std::count(searched.begin(), searched.end(), delimiter) + 1;
    if (limit > 0)
        count = std::min<__int64>(count, limit);
    UI_MacroArray pieces;
    if (!MacroArrayFits(count))
        return pieces;
    pieces.SetSize(static_cast<int>(count));
    UI_MacroVariant* piece = pieces.WritableData();
    std::size_t place = 0;
    for (__int64 i = 1; i < count; ++i) {
        const std::size_t hit = searched.find(delimiter, place);
        (piece++)->SetStringVal(SYS_String(text.View().substr(place, hit - place)));
        place = hit + 1;
    }
    piece->SetStringVal(SYS_String(text.View().substr(place)));
    return pieces;
}

} // namespace

UI_MacroVariant MacroSplit(int argc, UI_MacroVariant* argv) {
    if (argc < 1 || argc > 4 || !argv)
        return wrongArguments();
    const SYS_String text = textOf(argv[0]);
    if (text.IsEmpty())
        return UI_MacroArray();
    SYS_String delimiter = IsGiven(argc, argv, 1) ? textOf(argv[1]) : SYS_String(" ");
    if (delimiter.IsEmpty()) {
        UI_MacroArray whole;
        whole.Append(text);
        return whole;
    }
    const int limit = IsGiven(argc, argv, 2) ? static_cast<int>(argv[2]) : -1;
    if (limit < -1 || limit == 0)
        return UI_MacroArray();
    SYS_String searched = text;
    if (IsChosen(argc, argv, 3) && static_cast<int>(argv[3]) != 0) {
        searched.MakeLower();
        delimiter.MakeLower();
    }
    return cut(text, searched.View(), delimiter[0], limit);
}

UI_MacroVariant MacroJoin(int argc, UI_MacroVariant* argv) {
    if (argc < 1 || argc > 2 || !argv)
        return wrongArguments();
    const UI_MacroVariant* list = arrayArgument(argv[0], 1);
    if (!list)
        return wrongArguments();
    const UI_MacroArray elements = list->Arrval(); // an element's object may change the array
    const SYS_String delimiter = IsGiven(argc, argv, 1) ? textOf(argv[1]) : SYS_String(" ");
    SYS_String result;
    for (int i = 0; i < elements.GetCount(); ++i) {
        if (i > 0)
            result += delimiter;
        const UI_MacroVariant& element = elements.GetData()[i];
        if (element.GetType() == vvtString)
            result += element.GetStringVal();
        else
            result += textOf(element);
    }
    return result;
}

UI_MacroVariant MacroFilter(int argc, UI_MacroVariant* argv) {
    if (argc < 2 || !argv)
        return wrongArguments();
    const UI_MacroVariant* list = arrayArgument(argv[0], 1);
    if (!list)
        return wrongArguments();
    const UI_MacroArray elements = list->Arrval();
    SYS_String match = textOf(argv[1]);
    const bool include = !IsChosen(argc, argv, 2) || static_cast<int>(argv[2]) != 0;
    const bool foldCase = argc == 4 && IsChosen(argc, argv, 3) && static_cast<int>(argv[3]) != 0;
    if (foldCase)
        match.MakeLower();
    const TextSearch search(match.View());
    UI_MacroArray kept;
    for (int i = 0; i < elements.GetCount(); ++i) {
        const SYS_String element = textOf(elements.GetData()[i]);
        SYS_String searched = element;
        if (foldCase)
            searched.MakeLower();
        const bool found = search.First(searched.View(), 0) != TextSearch::npos;
        if (found == include)
            kept.Append(element);
    }
    return kept;
}
