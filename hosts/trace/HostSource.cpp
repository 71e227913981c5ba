#include "HostSource.h"

#include <filesystem>

namespace {

// Macros that a macro starts are files of the same kind.
MacroSource* openOther(char const* name, Trace& trace) {
    std::error_code error;
    if (!name || !std::filesystem::exists(name, error))
        return nullptr;
    return new HostSource(name, trace);
}

} // namespace

MacroSource* HostSource::Clone(char const* name) { return openOther(name, m_Trace); }

// Asked before anything is unwound. There is no debugger, so the run ends.
bool HostSource::BreakOnError(MacroException& error) {
    m_Trace.Note(error);
    return false;
}

void TextSource::Reset() {
    SetPosition(0);
    SetNextPosition(0);
    m_Given = false;
}

int TextSource::GetNextLine(SYS_String& line, bool) {
    if (m_Given)
        return 0;
    m_Given = true;
    line = m_Text;
    return 1;
}

MacroSource* TextSource::Clone(char const* name) { return openOther(name, m_Trace); }

bool TextSource::BreakOnError(MacroException& error) {
    m_Trace.Note(error);
    return false;
}
