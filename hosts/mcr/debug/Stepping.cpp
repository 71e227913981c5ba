#include "Stepping.h"

int Place::CountScripts(const ParserTree::Node* node) {
    int count = 0;
    for (; node && !node->Is(ParserTree::Kind::Function); node = node->GetParent())
        count += node->Is(ParserTree::Kind::ScriptExec) ? 1 : 0;
    return count;
}

void Stepping::Start(Kind kind, const Place& from, int count) {
    m_Kind = kind;
    m_From = from;
    m_Count = count;
}

bool Stepping::EndsAt(const Place& here) {
    if (m_Kind == Continue || !leaves(here))
        return false;
    m_From = here;
    return --m_Count <= 0;
}

// The same statement again means that a loop has come round.
bool Stepping::leaves(const Place& here) const {
    const bool moved =
        here.line != m_From.line || here.file != m_From.file || here.node == m_From.node;
    switch (m_Kind) {
    case Step:
        return moved || !here.IsBesides(m_From);
    case Next:
        return here.IsBesides(m_From) ? moved : !here.IsInside(m_From);
    case Finish:
        return m_From.IsInside(here);
    case Continue:
        break;
    }
    return false;
}
