// Finding and replacing text. Without regard to case means on lower-case copies, which have their
// places in common with the originals.

#include "runtime/Arguments.h"
#include "runtime/FunctionTable.h"
#include "runtime/TextSearch.h"

#include <algorithm>
#include <cstdint>

namespace {

/// A place counted from 1 as a place counted from 0.
std::int64_t fromOne(const UI_MacroVariant& argument) {
    return static_cast<std::int64_t>(static_cast<int>(argument)) - 1;
}

bool isOn(int argc, const UI_MacroVariant* argv, int place) {
    return IsGiven(argc, argv, place) && static_cast<int>(argv[place]) != 0;
}

} // namespace

UI_MacroVariant MacroInStr(int argc, UI_MacroVariant* argv) {
    if (argc < 2 || argc > 4 || !argv)
        return wrongArguments();
    std::int64_t start = 0;
    if (argc > 2 && IsGiven(argc, argv, 0))
        start = std::max<std::int64_t>(fromOne(argv[0]), 0);
    const int first = argc > 2 ? 1 : 0;
    SYS_String text = textOf(argv[first]);
    SYS_String match = textOf(argv[first + 1]);
    if (isOn(argc, argv, 3)) {
        text.MakeLower();
        match.MakeLower();
    }
    const std::size_t place =
        TextSearch(match.View()).First(text.View(), static_cast<std::size_t>(start));
    return place == TextSearch::npos ? 0 : static_cast<int>(place) + 1;
}

/// A place counts as soon as the first byte fits and the whole text stands there or further right.
UI_MacroVariant MacroInStrRev(int argc, UI_MacroVariant* argv) {
    if (argc < 2 || argc > 4 || !argv)
        return wrongArguments();
    SYS_String text = textOf(argv[0]);
    if (text.IsEmpty())
        return 0;
    SYS_String match = textOf(argv[1]);
    std::int64_t place = text.GetLength() - 1;
    if (argc == 3 && IsGiven(argc, argv, 2)) {
        const std::int64_t start = fromOne(argv[2]);
        place = start < 0 ? place : start;
    }
    if (isOn(argc, argv, 3)) {
        text.MakeLower();
        match.MakeLower();
    }
    if (match.IsEmpty())
        return static_cast<int>(place + 1);
    std::string_view searched = text.View();
    if (place > 0)
        searched = searched.substr(0, static_cast<std::size_t>(place) + 1);
    const std::size_t last = FindLast(searched, match.View());
    if (last == TextSearch::npos)
        return 0;
    const std::size_t found =
        searched.rfind(match[0], std::min(last, static_cast<std::size_t>(place)));
    return found == TextSearch::npos ? 0 : static_cast<int>(found) + 1;
}

UI_MacroVariant MacroReplace(int argc, UI_MacroVariant* argv) {
    if ((argc != 3 && argc != 5 && argc != 6) || !argv)
        return wrongArguments();
    const SYS_String text = textOf(argv[0]);
    if (text.IsEmpty())
        return text;
    SYS_String find = textOf(argv[1]);
    if (find.IsEmpty())
        return text;
    const SYS_String with = textOf(argv[2]);
    std::size_t place = 0;
    int left = -1;
    if (IsGiven(argc, argv, 3))
        place = static_cast<std::size_t>(std::max<std::int64_t>(fromOne(argv[3]), 0));
    if (place >= text.View().size())
        return SYS_String();
    if (IsGiven(argc, argv, 4))
        left = static_cast<int>(argv[4]);
    if (left < -1 || left == 0)
        return text;
    SYS_String searched = text;
    if (IsChosen(argc, argv, 5) && static_cast<bool>(argv[5])) {
        searched.MakeLower();
        find.MakeLower();
    }

    const TextSearch search(find.View());
    SYS_String result;
    std::size_t copied = 0;
    for (; left != 0; left -= left > 0) {
        const std::size_t hit = search.First(searched.View(), place);
        if (hit == TextSearch::npos)
            break;
        result.Append(text.View().substr(copied, hit - copied));
        result.Append(with.View());
        copied = place = hit + find.View().size();
    }
    if (copied == 0)
        return text;
    return result.Append(text.View().substr(copied));
}
