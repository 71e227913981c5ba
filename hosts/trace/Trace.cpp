#include "Trace.h"

#include <UI_Macro.h>

namespace {

constexpr int kMostFrames = 20;

} // namespace

void Trace::Note() {
    Clear();
    UI_Macro door(false); // reads the frames of the current processor, makes none of its own
    const int count = door.GetFramesCount();
    m_LeftOut = count > kMostFrames ? count - kMostFrames : 0;
    for (int i = 0; i < count; ++i) {
        if (m_LeftOut > 0 && i == kMostFrames - 1)
            i = count - 1;
        MacroSource* source = door.GetSource(i);
        m_Frames.push_back({door.GetContext(i).c_str(), source ? source->GetFileName().c_str() : "",
                            door.GetPosition(i)});
    }
}

void Trace::Note(const MacroException& error) {
    Note();
    if (!m_Frames.empty() && m_Frames.front().file == error.GetFilePath().View())
        m_Frames.front().line = error.GetPosition();
}

void Trace::Clear() {
    m_Frames.clear();
    m_LeftOut = 0;
}

std::string Trace::Describe() const {
    std::string text;
    for (size_t i = 0; i < m_Frames.size(); ++i) {
        const Frame& frame = m_Frames[i];
        if (m_LeftOut > 0 && i + 1 == m_Frames.size())
            text += "  ... " + std::to_string(m_LeftOut) + " more\n";
        text += "  at " + frame.file + ":" + std::to_string(frame.line + 1);
        if (!frame.procedure.empty())
            text += " in " + frame.procedure;
        text += '\n';
    }
    return text;
}
