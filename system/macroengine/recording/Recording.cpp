// Lines of macro text that the host's commands report, on their way to the output.

#include "recording/MacroLogFile.h"

SCC_Event<char const*>& MacroSupport::RecordEvent() {
    static auto& event = *new SCC_Event<char const*>;
    return event;
}

void MacroSupport::Record(char const* text, int id, int) { RecordEvent().Raise(id, text); }

void MacroSupport::BeginRecording(MacroOutput* output) {
    m_LastCompressID = 0;
    m_LastRecorded.Clear();
    SetOutput(output);
}

void MacroSupport::OnRecord(int id, char const* text) {
    if (!text)
        return;
    if (m_BMWLog && !IsExecuting())
        m_BMWLog->Record(text);
    // An output of the host may stop this recording, start another or end the processor.
    const SCL_Pointer<MacroOutput> output = m_Output;
    MacroOutput* background = backgroundLog();
    if (!output && !background)
        return;
    const int effective = GetCompressionMode() ? id : 0;
    const bool goesOut = effective != m_LastCompressID || effective == 0;
    const bool waited = goesOut && m_LastCompressID != 0;
    const SYS_String waiting = waited ? m_LastRecorded : SYS_String();
    m_LastRecorded = text;
    m_LastCompressID = effective;
    for (MacroOutput* sink : {output.Get(), background}) {
        if (sink && waited)
            sink->Record(waiting);
        if (sink && goesOut)
            sink->Record(text);
    }
}

void MacroSupport::PushModalContext(char const* name) {
    SYS_String line = GetModalContextIndent();
    line += "withDlg ";
    line += name;
    Record(line, 0, 0);
    m_ModalContexts.Push(SYS_String(name));
}

void MacroSupport::PopModalContext() {
    if (m_ModalContexts.IsEmpty())
        return;
    m_ModalContexts.Pop();
    SYS_String line = GetModalContextIndent();
    line += "end withDlg";
    Record(line, 0, 0);
}

SYS_String MacroSupport::GetModalContext() const {
    return m_ModalContexts.IsEmpty() ? SYS_String() : m_ModalContexts.Peek(0);
}

SYS_String MacroSupport::GetModalContextIndent() const {
    return SYS_String(' ', static_cast<unsigned>(2 * GetModalContextLevel()));
}

int MacroSupport::GetModalContextLevel() const {
    return m_ModalContexts.IsEmpty() ? 0 : m_ModalContexts.GetCount();
}
