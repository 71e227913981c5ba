#include "DebugSource.h"

void DebugSource::Reset() {
    SetPosition(0);
    SetNextPosition(0);
    m_Given = false;
}

int DebugSource::GetNextLine(SYS_String& line, bool) {
    if (m_Given)
        return 0;
    m_Given = true;
    line = SYS_String(m_File.text.JoinForEngine());
    return 1;
}

MacroSource* DebugSource::Clone(char const* name) {
    ScriptFile* file = name ? m_Events.OnOpen(name) : nullptr;
    return file ? new DebugSource(*file, m_Events) : nullptr;
}
