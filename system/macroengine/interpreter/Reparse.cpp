// Edits of a macro, mostly one that is paused: the tree is brought in line with the text, and the
// run is put back on a statement of it.

#include <UI_MacroProcessor.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "engine/Frames.h"
#include "interpreter/RunGuard.h"
#include "interpreter/WithinMemory.h"
#include "language/ParseState.h"
#include "language/Scanner.h"
#include "language/TreeUpdate.h"

namespace {

using Node = ParserTree::Node;
using Kind = ParserTree::Kind;
using Position = ParserTree::Position;

bool isGoing(const Position* position) {
    return position && (position->isMarked || position->line < 0);
}

/// Whether something around a place where the run stands is going, and the run needs it: the head
/// of a loop, which keeps its bound there, or the statement that runs this script.
bool needsWhatGoes(const Node* node) {
    for (const Node* at = node ? node->GetParent() : nullptr; at; at = at->GetParent())
        if ((at->Is(Kind::ForStm) || at->Is(Kind::ScriptExec)) && isGoing(at->GetPosition()))
            return true;
    return false;
}

/// The first node of a line that a run can come to.
Node* firstCode(const Position* position) {
    for (Node* node = position ? position->firstNode : nullptr; node; node = node->GetNextOnLine())
        if (node->GetParent() || node->Is(Kind::Function))
            return node;
    return nullptr;
}

bool isInside(const Node* node, const Node* block) {
    while (node && node != block)
        node = node->GetParent();
    return node != nullptr;
}

/// Whether a loop or a `With` is under way in the innermost frame; true for every other node.
bool isRunning(const MacroParser& parser, Node* block) {
    if (block->Is(Kind::ForStm))
        return parser.findResult(block->GetFirstChild()) != nullptr;
    if (!block->Is(Kind::With))
        return true;
    const ExecutionContext* top = parser.GetFrames().Top();
    const ContextBlock* open = top ? top->m_TopBlock : nullptr;
    while (open && open->node != block)
        open = open->below;
    return open != nullptr;
}

/// The lines at which the frames stand; the numbers of the lines may change.
class FrameLines {
public:
    FrameLines(const FrameStack& frames, const ParserTree::ScriptUnit& unit) {
        for (ExecutionContext* f = frames.Top(); f; f = f->m_Below) {
            const auto line = static_cast<std::size_t>(f->m_Position);
            if (f->m_Source.Get() == unit.source.Get() && f->m_Position >= 0 &&
                line < unit.m_Lines.size() && unit.m_Lines[line])
                m_Lines.emplace_back(f, unit.m_Lines[line]);
        }
    }
    void Update() const {
        for (const auto& [frame, position] : m_Lines)
            if (position->line >= 0)
                frame->m_Position = position->line;
    }

private:
    std::vector<std::pair<ExecutionContext*, const Position*>> m_Lines;
};

} // namespace

bool MacroParser::Reparse(SCL_Vector<LineChange> const& changes) {
    const EntryGuard entry(*this);
    if (m_Evaluating || m_Parsing || m_Editing)
        OnError(errIllegalNesting, SYS_String());
    if (!m_Source || !m_Tree->GetCurrentUnit())
        return false;
    if (changes.empty() && !m_Tree->m_Pending)
        return true;
    const ParserTree::Step old = m_Current;
    // An attempt that failed has put the run on another line for the time being.
    const ParserTree::Step makeshift = std::exchange(m_Tree->m_AnchorStep, {});
    const bool isMakeshift = m_Tree->m_Anchor && old.node && old.node == makeshift.node &&
                             old.ascending == makeshift.ascending;
    if (!isMakeshift)
        m_Tree->m_Anchor = old.node ? old.node->GetPosition() : nullptr;
    ++m_Edits;
    const FrameLines frameLines(*m_ContextStack, *m_Tree->GetCurrentUnit());
    bool isDone = false;
    try {
        WithinMemory(*this, [&] {
            const ParsingFlag editing(m_Editing);
            TreeUpdate update(*this);
            update.Mark(changes);
            if (m_StopPending || breaksTheRun())
                return;
            m_Tree->BeginUpdate();
            m_Current = isMakeshift ? ParserTree::Step{} : old; // as long as its line stays
            isDone = update.Parse() == TreeUpdate::Result::Done;
        });
    } catch (const MacroException& error) {
        frameLines.Update();
        refuseEdit(old.node != nullptr, error.GetPosition());
        throw;
    } catch (...) {
        frameLines.Update();
        refuseEdit(old.node != nullptr, m_Source ? m_Source->GetPosition() : 0);
        throw;
    }
    if (m_StopPending)
        return false;
    frameLines.Update();
    if (!isDone || !linkFrames())
        return giveUpEdit();
    anchorRun();
    ParserTree::Position* const anchor = std::exchange(m_Tree->m_Anchor, nullptr);
    m_Tree->m_Parent = nullptr;
    standAt(m_Current.node ? m_Current : stepAt(anchor));
    return true;
}

/// Whether a marked line is one that the run cannot do without.
bool MacroParser::breaksTheRun() const {
    for (const ExecutionContext* f = m_ContextStack->Top(); f; f = f->m_Below)
        for (const ContextBlock* block = f->m_TopBlock; block; block = block->below) {
            if (isGoing(block->line) || isGoing(block->callPosition))
                return true;
            if (block->kind == ContextBlock::kCall && needsWhatGoes(block->node))
                return true;
        }
    for (const RunGuard* guard = m_TopGuard; guard; guard = guard->GetOuter()) {
        const Node* node = guard->GetNode();
        if (guard->IsSameTree() && node && (isGoing(node->GetPosition()) || needsWhatGoes(node)))
            return true;
    }
    if (m_PlaybackDepth == 0 || !m_Current.node)
        return false;
    return needsWhatGoes(m_Current.node) ||
           (!m_BetweenSteps && isGoing(m_Current.node->GetPosition()));
}

/// Stops the macro. The tree is kept while anything of the run may still be under way in it.
bool MacroParser::giveUpEdit() {
    m_OldTrees.push_back(m_Tree);
    m_Tree = new ParserTree(*this);
    m_Functions.RemoveAll();
    for (ExecutionContext* f = m_ContextStack->Top(); f; f = f->m_Below)
        f->m_Function = nullptr;
    m_CurrentFunction = nullptr;
    m_Current = {nullptr, false};
    m_PausedAt = {};
    m_ExecutionMode = emStopped;
    return false;
}

/// Checks that the procedures of all frames are still there, and takes up that of the top one.
bool MacroParser::linkFrames() {
    for (const ExecutionContext* f = m_ContextStack->Top(); f; f = f->m_Below)
        for (const ContextBlock* block = f->m_TopBlock; block; block = block->below) {
            if (block->kind != ContextBlock::kCall)
                continue;
            const FunctionTableItem* item = m_Functions.Lookup(SYS_StrNoCase(block->name));
            if (!item || item->GetDeclaration()->GetPosition() != block->line)
                return false;
        }
    const ExecutionContext* top = m_ContextStack->Top();
    m_CurrentFunction = top ? top->m_Function : nullptr;
    return true;
}

/// Lets the anchor float to the next line that has code.
void MacroParser::anchorRun() {
    ParserTree::Position*& anchor = m_Tree->m_Anchor;
    for (ParserTree::Position* position : m_Tree->GetCurrentUnit()->m_Lines) {
        if (!position)
            continue;
        if (!firstCode(position)) {
            if (anchor == position)
                anchor = nullptr;
        } else if (!anchor) {
            anchor = position;
        }
    }
}

/// The step at which a run goes on that stood on that line.
ParserTree::Step MacroParser::stepAt(ParserTree::Position* anchor) {
    Node* const root = &m_Tree->GetCurrentUnit()->m_Root;
    Node* node = firstCode(anchor);
    if (!node)
        return {root, false};
    // The statement, not the operand that was made first: a loop begins with its own setup.
    while (!node->Is(Kind::Function) && node->GetParent() &&
           !node->GetParent()->Is(Kind::Function) &&
           node->GetParent()->GetPosition() == node->GetPosition())
        node = node->GetParent();
    // A block that the edit has put around the line begins with its own first line.
    for (Node* at = node; at && !at->Is(Kind::Function); at = at->GetParent())
        if (at != node && !isRunning(*this, at))
            node = at;
    if (m_CurrentFunction && !isInside(node, m_CurrentFunction))
        return {m_CurrentFunction, false};
    if (!m_CurrentFunction && (node->Is(Kind::Function) || node->GetFunction()))
        return {root, false};
    return {node, false};
}

void MacroParser::standAt(ParserTree::Step step) {
    m_Current = step;
    m_PausedAt = step;
    const long line = step.node->GetLine();
    m_Source->SetPosition(0);
    m_Source->SetNextPosition(line);
    ExecutionContext* top = m_ContextStack->Top();
    if (top && line >= 0 && m_PlaybackDepth > 0)
        top->m_Position = line;
    // A deleted line may have been the last of its With.
    while (top && top->m_TopBlock && top->m_TopBlock->kind == ContextBlock::kWith &&
           !isInside(step.node, top->m_TopBlock->node))
        top->PopBlock();
    for (ExecutionContext* f = top; f; f = f->m_Below)
        for (ContextBlock* block = f->m_TopBlock; block; block = block->below)
            if (block->kind == ContextBlock::kWith && block->node)
                block->node->OnContextChanged(*this);
}

/// Keeps a macro paused whose text has an error. The anchor stays, for the line to be mended.
void MacroParser::refuseEdit(bool hasStep, long line) {
    if (!m_Tree->GetCurrentUnit() || m_StopPending)
        return;
    linkFrames();
    if (hasStep && !m_Current.node) {
        const auto& lines = m_Tree->GetCurrentUnit()->m_Lines;
        auto at = std::find(lines.begin(), lines.end(), m_Tree->m_Anchor);
        while (at != lines.end() && !firstCode(*at))
            ++at;
        m_Current = m_Tree->m_AnchorStep = stepAt(at == lines.end() ? nullptr : *at);
    }
    if (m_Source)
        m_Source->SetNextPosition(line);
    SetExecutionMode(emPaused);
}
