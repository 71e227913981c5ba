#include "interpreter/RunGuard.h"

#include "engine/Frames.h"

namespace {

int s_NativeRuns = 0;

} // namespace

EntryGuard::~EntryGuard() {
    if (m_Processor.m_Entries == 1) { // still busy for what the end calls back
        m_Processor.m_OldTrees.clear();
        m_Processor.finishStop();
    }
    if (--m_Processor.m_Entries == 0 && m_Processor.m_Abandoned)
        delete &m_Processor;
}

RunGuard::RunGuard(MacroParser& processor)
    : m_Processor(processor), m_Outer(processor.m_TopGuard), m_Tree(&processor.GetTree()),
      m_Node(processor.m_Current.node), m_BetweenSteps(processor.m_BetweenSteps),
      m_Function(processor.m_CurrentFunction), m_Unit(processor.GetTree().GetCurrentUnit()),
      m_Frames(processor.m_ContextStack->GetCount()),
      m_Blocks(m_Frames ? processor.m_ContextStack->Top()->GetBlockDepth() : 0) {
    if (s_NativeRuns >= MacroSupport::GetLimits().nestedRuns) {
        struct Leave {
            MacroParser& processor;
            ~Leave() {
                if (processor.m_PlaybackDepth == 0 && !processor.IsInEvaluation()) {
                    processor.m_Current = {nullptr, false};
                    processor.m_ExecutionMode = MacroSupport::emFinished;
                }
            }
        } leave{processor};
        processor.OnError(errIllegalNesting, SYS_String());
    }
    ++s_NativeRuns;
    ++processor.m_PlaybackDepth;
    processor.m_TopGuard = this;
    processor.m_BetweenSteps = false;
}

RunGuard::~RunGuard() {
    FrameStack& frames = *m_Processor.m_ContextStack;
    frames.PopTo(m_Frames);
    if (m_Frames && frames.GetCount() == m_Frames)
        while (frames.Top()->GetBlockDepth() > m_Blocks)
            frames.Top()->PopBlock();
    m_Processor.m_TopGuard = m_Outer;
    m_Processor.m_BetweenSteps = m_BetweenSteps;
    if (IsSameTree())
        m_Processor.m_CurrentFunction = m_Function;
    if (IsSameTree() && m_Unit && m_Processor.GetTree().GetCurrentUnit() != m_Unit)
        m_Processor.GetTree().SetCurrentUnit(m_Unit);
    --s_NativeRuns;
    --m_Processor.m_PlaybackDepth;
    if (m_Processor.m_PlaybackDepth > 0)
        return;
    if (!m_Done && !m_Processor.IsInEvaluation()) {
        m_Processor.m_Current = {nullptr, false};
        if (m_Processor.m_ExecutionMode != MacroSupport::emStopped)
            m_Processor.m_ExecutionMode = MacroSupport::emFinished;
    }
}
