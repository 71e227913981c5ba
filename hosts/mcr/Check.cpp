// mcr check: whether files are macros.

#include "EditorCommands.h"
#include "MacroText.h"
#include "Session.h"

#include <algorithm>

namespace {

std::string countOf(std::size_t count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

} // namespace

int CheckMacros(const std::vector<std::string>& files) {
    Session session;
    int worst = ExitDone;
    std::size_t faulty = 0;
    std::size_t unreadable = 0;
    for (const std::string& file : files) {
        SYS_String text;
        if (!ReadMacroText(file, text)) {
            ++unreadable;
            worst = std::max<int>(worst, ExitUsage);
            continue;
        }
        const MacroReport report = session.GetMacro().InspectMacroText(text, SYS_String(file));
        if (report.endsEarly)
            WriteError(DescribeProblem(file, report.problem, "warning: "));
        if (report.parses)
            continue;
        ++faulty;
        worst = std::max<int>(worst, ExitMacroError);
        WriteError(DescribeProblem(file, report.problem));
    }
    if (files.size() > 1) {
        std::string summary = countOf(files.size(), "file") + ", " + countOf(faulty, "error");
        if (unreadable > 0)
            summary += ", " + std::to_string(unreadable) + " not readable";
        WriteError(summary + "\n");
    }
    return worst;
}
