#include "recording/MacroLogFile.h"

MacroSupport::MacroLogFile::MacroLogFile() : MacroOutputFile(nullptr) { DisableRefCount(); }

bool MacroSupport::MacroLogFile::Open(char const* name, char const* mode) {
    m_File.SetName(name);
    return m_File.Open(mode);
}

int MacroSupport::MacroLogFile::Record(char const* text) {
    return m_File.IsOpen() && writeNow(text) ? 1 : 0;
}
