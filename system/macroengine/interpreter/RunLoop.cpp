// The walk over the tree: one current step, one loop for each way of running.

#include <Platform.h>
#include <SCL_Assert.h>
#include <UI_MacroProcessor.h>

#include <utility>

#include "engine/Frames.h"
#include "interpreter/RunGuard.h"
#include "interpreter/WithinMemory.h"
#include "language/Scanner.h"
#include "language/TreeBuilder.h"
#include "values/Access.h"

namespace {

constexpr int kHookInterval = 1024; // steps of an evaluation between two calls of the hook

} // namespace

MacroParser::MacroParser(bool nested)
    : MacroSupport(nested), m_Tree(new ParserTree(*this)),
      m_Builder(std::make_unique<TreeBuilder>(*this)) {}

MacroParser::~MacroParser() {
    // Cells of the frames point into the tree and the other way round: frames go first.
    m_ContextStack->Clear();
    m_Tree = nullptr;
}

bool MacroParser::hasUnits() const { return m_Tree->GetUnits().GetCount() > 0; }

// --- Entries -----------------------------------------------------------------------------------

MacroPlaybackResult MacroParser::Run(int resume, MacroSource* source, char const* name) {
    if (!m_Current.node && source) {
        if (resume != 0 && source != m_Source)
            return pbFailed;
        SetSource(source);
        SCL_ASSERT(!m_Current.node, "MacroParser::Run: a run is in progress");
        if (!Parse())
            return pbFailed;
    }
    if (!m_Current.node)
        return pbFailed;
    const EntryGuard entry(*this);
    const bool isEvaluation = std::exchange(m_EvaluationStarts, false);
    if (resume == 0 && m_PlaybackDepth > 0 && !isEvaluation)
        OnError(errIllegalNesting, SYS_String()); // would walk the running step again
    RunGuard guard(*this);
    if (resume != 0) {
        guard.SetDone();
        return ResumeWith(name);
    }
    ExecutionStep();
    guard.SetDone();
    return Finish();
}

MacroPlaybackResult MacroParser::Finish() {
    m_Current = {nullptr, false};
    if (IsInEvaluation())
        return pbFinished;
    CloseAllFiles();
    if (m_ExecutionMode != emStopped)
        m_ExecutionMode = emFinished;
    return pbFinished;
}

UI_MacroVariant MacroParser::Call(const SYS_String& function, UI_MacroVariant* args, int argc) {
    const EntryGuard entry(*this);
    if (m_ContextStack->IsEmpty())
        pushBottomFrame();
    struct Saved {
        MacroParser& processor;
        ParserTree::Step step;
        ExecutionMode mode;
        bool changeMode;
        const ParserTree* tree;
        ~Saved() {
            if (processor.m_ExecutionMode == emStopped)
                return;
            processor.m_Current = processor.m_Tree.Get() == tree ? step : ParserTree::Step{};
            if (changeMode)
                processor.m_ExecutionMode = mode;
        }
    } saved{*this, m_Current, m_ExecutionMode, !IsExecuting(), m_Tree.Get()};
    RunGuard guard(*this);
    ParserTree::NodeImpl<ParserTree::Object, false> object;
    ParserTree::NodeImpl<ParserTree::ObjectExec, false> call;
    call.AppendChild(&object);
    object.name = function;
    object.interned = MacroName::Intern(function.View());
    object.isCall = true;
    ParserTree::Cell* target = getResultVal(&object);
    target->value.SetFunctionRefVal(function, this);
    MacroVariantAccess::SetArguments(target->value, args, args ? argc : 0);
    if (saved.changeMode)
        m_ExecutionMode = emRun;
    WithinMemory(*this, [&] { m_Current = EnterProcedure(call, *target); });
    ExecutionStep();
    guard.SetDone();
    UI_MacroVariant result;
    if (ParserTree::Cell* cell = findResult(&call))
        result.Take(cell->value);
    return result;
}

void MacroParser::endCall(bool failed) {
    if (m_PlaybackDepth > 0)
        return;
    m_Current = {nullptr, false};
    if (!failed)
        CloseAllFiles();
    if (m_ExecutionMode != emStopped && (!m_Parent || failed))
        m_ExecutionMode = emFinished;
}

// --- The dispatcher ----------------------------------------------------------------------------

void MacroParser::ExecutionStep() {
    while (m_Current.node && m_ExecutionMode != emStopped) {
        try {
            WithinMemory(*this, [this] { runInMode(); });
        } catch (MacroException& error) {
            if (IsInEvaluation() || !stopOnError(error))
                throw;
        }
    }
}

void MacroParser::runInMode() {
    if (IsExecuting() && !IsInEvaluation())
        m_LastExecuting = m_ExecutionMode;
    m_BetweenSteps = false;
    bool byOwnRule = false;
    switch (m_ExecutionMode) {
    case emRun:
        RunToBreak();
        return;
    case emStopped:
    case emFinished:
        m_Current = {nullptr, false};
        return;
    case emPaused:
        m_BetweenSteps = true;
        pausedTurn();
        return;
    case emStepInto:
        byOwnRule = RunStepInto();
        break;
    case emStepOut:
        byOwnRule = RunStepOut();
        break;
    case emStepOver:
        byOwnRule = RunStepOver();
        break;
    case emEval:
    case emEvalPure:
        RunFast();
        return;
    }
    m_BetweenSteps = true;
    if (byOwnRule && m_Current.node)
        SetExecutionMode(emPaused);
}

void MacroParser::pausedTurn() {
    const bool nobody = !m_Source || m_Source->TakeNoDebuggerNote();
    if (CallIdleHook())
        return;
    if (nobody) {
        m_ExecutionMode = m_LastExecuting; // nobody is there to resume the run
        return;
    }
    GetPlatform().Sleep(1);
}

bool MacroParser::stopOnError(MacroException& error) {
    m_BetweenSteps = true;
    if (!m_Current.node || !m_Source)
        return false;
    const LastError told = m_LastError;
    if (!m_Source->BreakOnError(error)) {
        m_LastError = told; // a look at the values has left its own
        return false;
    }
    if (!m_Current.node)
        return true; // the source ended the run
    ParserTree::Node* node = m_Current.node;
    const long line = node->GetLine();
    while (!node->IsStatement() && node->GetParent() && node->GetParent()->GetLine() == line)
        node = node->GetParent();
    m_Current = {node, false};
    m_Source->IsBreakPoint(line);
    return true;
}

bool MacroParser::CheckBreak(const ParserTree::Step& step) {
    SCL_ASSERT(step.node, "MacroParser::CheckBreak: nothing to run");
    const ParserTree::Position* position = step.node->GetPosition();
    if (!position || position->line < 0)
        return false;
    const long line = position->line;
    if (!m_Source) {
        m_Current = {nullptr, false};
        return true;
    }
    m_Source->SetPosition(m_Source->GetNextPosition());
    m_Source->SetNextPosition(line);
    if (ExecutionContext* top = m_ContextStack->Top()) {
        top->m_Position = line;
        if (top->m_Source.Get() != m_Source.Get())
            top->m_Source = m_Source; // a script runs in the frame of its caller
    }
    if (step.ascending)
        return false;
    const ExecutionMode mode = m_ExecutionMode;
    const unsigned edits = m_Edits; // the step may be gone after an edit
    m_BetweenSteps = true;
    if (s_HasStatementHook) {
        callStatementHook(line);
        if (m_ExecutionMode != mode || m_Edits != edits)
            return true;
    }
    const SCL_Pointer<MacroSource> keep(m_Source); // the answer may be to let go of it
    const bool stops = keep->IsBreakPoint(line);
    m_BetweenSteps = false;
    return stops || m_ExecutionMode != mode || m_Edits != edits;
}

/// Carries out the current step. False if the loop of `mode` must end.
bool MacroParser::takeStep(ParserTree::Step& step, ExecutionMode mode) {
    const ParserTree::Step next =
        step.ascending ? step.node->Leave(*this) : step.node->Enter(*this);
    if (m_ExecutionMode == mode) {
        step = m_Current = next;
        return next.node != nullptr;
    }
    if (m_ExecutionMode != emStopped)
        m_Current = next;
    return false;
}

void MacroParser::RunToBreak() {
    SCL_ASSERT(m_Source, "MacroParser::RunToBreak: no source");
    m_PausedAt = {};
    ParserTree::Step step = m_Current;
    do {
        if (step.node->IsStatementNode() && CheckBreak(step))
            return;
    } while (takeStep(step, emRun));
}

void MacroParser::RunFast() {
    ParserTree::Step step = m_Current;
    const ExecutionMode mode = m_ExecutionMode;
    int untilHook = kHookInterval;
    do {
        if (--untilHook > 0)
            continue;
        untilHook = kHookInterval;
        if (s_HasStatementHook) {
            callStatementHook(step.node->GetLine());
            if (m_ExecutionMode != mode)
                return;
        }
    } while (takeStep(step, mode));
}

bool MacroParser::resumesAt(const ParserTree::Step& step) {
    const ParserTree::Step paused = std::exchange(m_PausedAt, {});
    return paused.node == step.node && paused.ascending == step.ascending;
}

bool MacroParser::RunStepInto() {
    ParserTree::Step step = m_Current;
    do {
        if (step.node->IsStatementNode() && CheckBreak(step))
            return false;
        const bool resumed = resumesAt(step);
        if (!resumed && !step.ascending && step.node->Is(ParserTree::Kind::Function))
            return true;
    } while (takeStep(step, emStepInto));
    return false;
}

bool MacroParser::RunStepOver() {
    ParserTree::Step step = m_Current;
    const auto* startFunction = m_CurrentFunction;
    const long startLine = m_Source ? m_Source->GetNextPosition() : -1;
    bool left = false;
    do {
        if (step.node->IsStatementNode() && CheckBreak(step))
            return false;
        if (!resumesAt(step)) {
            if (left)
                return true;
            if (m_CurrentFunction == startFunction) {
                if (!step.ascending) {
                    const long line = step.node->GetLine();
                    if (line > 0 && line != startLine)
                        return true;
                } else if (step.node == startFunction) {
                    left = true;
                }
            }
        }
    } while (takeStep(step, emStepOver));
    return false;
}

bool MacroParser::RunStepOut() {
    ParserTree::Step step = m_Current;
    const auto* startFunction = m_CurrentFunction;
    const long startLine = m_Source ? m_Source->GetNextPosition() : -1;
    bool left = false;
    do {
        if (step.node->IsStatementNode() && CheckBreak(step))
            return false;
        const bool resumed = resumesAt(step);
        if (left && !resumed)
            return true;
        if (startFunction) {
            if (step.ascending && step.node == startFunction)
                left = true;
        } else if (!resumed && !m_CurrentFunction && !step.ascending) {
            const long line = step.node->GetLine();
            if (line > 0 && line != startLine)
                return true;
        }
    } while (takeStep(step, emStepOut));
    return false;
}
