#include "interpreter/ContextSwaper.h"

#include <utility>

#include "language/Scanner.h"

cMacroContextSwaper::cMacroContextSwaper(MacroParser& outer, MacroSource* source)
    : UI_MacroImpl(false), m_Outer(outer) {
    SetSource(source);
    m_ExecutionMode = emRun;
    swap();
}

cMacroContextSwaper::~cMacroContextSwaper() {
    swap();
    if (m_Outer.m_StopPending) {
        m_Outer.m_ExecutionMode = emStopped;
        m_Outer.m_Current = {nullptr, false};
    }
}

void cMacroContextSwaper::swap() {
    m_Scanner->SwapState(m_Outer.m_Scanner->GetState());
    m_Tree.Swap(m_Outer.m_Tree);
    m_Tree->SetProcessor(*this);
    m_Outer.m_Tree->SetProcessor(m_Outer);
    m_Source.Swap(m_Outer.m_Source);
    std::swap(m_ExecutionMode, m_Outer.m_ExecutionMode);
    std::swap(m_Current, m_Outer.m_Current);
    std::swap(m_CurrentFunction, m_Outer.m_CurrentFunction);
    std::swap(m_Options, m_Outer.m_Options);
    std::swap(m_Parsing, m_Outer.m_Parsing);
}
