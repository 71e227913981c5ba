#include "MacroSource.h"

#include <MacroException.h>
#include <SCL_Path.h>

#include <cstring>

namespace {

constexpr __int64 kMaxTextBytes = 0x3FFFFFFF;

void dropByteOrderMark(SYS_String& text) {
    const std::string_view view = text.View();
    if (view.size() >= 3 && view.substr(0, 3) == "\xEF\xBB\xBF")
        text = text.Mid(3);
}

} // namespace

// --- MacroSource -----------------------------------------------------------------------------

MacroSource::~MacroSource() = default;

void MacroSource::OnPause() { noteNoDebugger(); }

void MacroSource::OnEnableExecution(int) {}

bool MacroSource::IsBreakPoint(long) { return false; }

void MacroSource::OnContinue() {}

void MacroSource::OnWakeup() {}

bool MacroSource::LineByLine() { return true; }

bool MacroSource::BreakOnError(MacroException&) { return false; }

bool MacroSource::TakeNoDebuggerNote() {
    const bool noted = m_NoDebugger;
    m_NoDebugger = false;
    return noted;
}

// --- MacroSourceFile -------------------------------------------------------------------------

MacroSourceFile::MacroSourceFile(char const* name) {
    m_LineOffsets.Append(0);
    if (name) {
        m_File.SetName(name);
        m_File.Open("r");
    }
}

MacroSourceFile::~MacroSourceFile() = default;

void MacroSourceFile::OnPause() {
    m_File.Close();
    MacroSource::OnPause();
}

void MacroSourceFile::Reset() {
    SetPosition(0);
    SetNextPosition(0);
    m_LineOffsets.Clear();
    m_LineOffsets.Append(0);
    if (LineByLine()) { // a pause has closed it, and it may be another file by now
        m_File.Close();
        m_File.Open("r");
    }
}

SYS_String MacroSourceFile::GetFileName() { return m_File.GetName(); }

bool MacroSourceFile::LineByLine() { return false; }

MacroSource* MacroSourceFile::Clone(char const* name) {
    if (!name || !SCL::filesystem::current_directory().exists(name))
        return nullptr;
    return new MacroSourceFile(name);
}

bool MacroSourceFile::ensureOpen() { return m_File.IsOpen() || m_File.Open("r"); }

bool MacroSourceFile::IsReadable() { return ensureOpen() && m_File.GetLength() <= kMaxTextBytes; }

int MacroSourceFile::readWhole(SYS_String& text) {
    if (GetPosition() != 0)
        return 0;
    // The file may have been edited, or replaced by a new one, since it was opened.
    m_File.Close();
    m_Failed = !IsReadable() || !m_File.Seek(0) || !m_File.ReadAll(text);
    if (m_Failed)
        return 0;
    dropByteOrderMark(text);
    SetPosition(GetPosition() + 1);
    return 1;
}

int MacroSourceFile::GetNextLine(SYS_String& line, bool) {
    if (!LineByLine())
        return readWhole(line);
    m_Failed = !m_File.IsOpen();
    if (m_Failed)
        return 0;
    if (GetNextPosition() >= m_LineOffsets.GetCount())
        SetNextPosition(m_LineOffsets.GetCount() - 1);
    const SCC_Array<long>& offsets = m_LineOffsets;
    if (!m_File.Seek(offsets[static_cast<int>(GetNextPosition())]))
        return 0;
    const long current = GetNextPosition();
    if (!m_File.ReadLine(line))
        return 0;
    if (current == 0)
        dropByteOrderMark(line);
    SetPosition(current);
    SetNextPosition(current + 1);
    const int next = static_cast<int>(current) + 1;
    if (next >= m_LineOffsets.GetCount())
        m_LineOffsets.SetSize(next + 1);
    m_LineOffsets[next] = static_cast<long>(m_File.GetPosition());
    return 1;
}

// --- MacroOutput -----------------------------------------------------------------------------

MacroOutput::~MacroOutput() = default;

void MacroOutput::Reset() { m_WriteOffset = 0; }

MacroOutputFile::MacroOutputFile(char const* name) {
    if (name) {
        m_File.SetName(name);
        m_File.Open("w");
    }
}

MacroOutputFile::~MacroOutputFile() = default;

int MacroOutputFile::Record(char const* text) {
    if (!m_File.IsOpen() || !m_File.Seek(m_WriteOffset) || !writeNow(text))
        return 0;
    m_WriteOffset = static_cast<long>(m_File.GetPosition());
    return 1;
}

bool MacroOutputFile::writeNow(char const* text) {
    return m_File.Write(text, text ? std::strlen(text) : 0) && m_File.Write("\n", 1) &&
           m_File.Flush();
}

// --- MacroFileNameStorage ----------------------------------------------------------------------

MacroFileNameStorage& MacroFileNameStorage::GetStorage() {
    static auto& storage = *new MacroFileNameStorage;
    return storage;
}

void MacroFileNameStorage::OnFileNameSetUp(char const* name) {
    m_Name = name;
    m_Event.Raise(0, m_Name);
}

void MacroFileNameStorage::OnFileNameCanceled() { m_Event.Raise(0, SYS_String()); }

void MacroFileNameStorage::Unsubscribe(SCC_EventNode<SYS_String>& node) {
    if (node.GetRoot() == &m_Event)
        node.Remove();
}
