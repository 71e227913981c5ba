// Running the block of a modal dialog while the host has the dialog open.

#include <SCL_Assert.h>

#include "interpreter/RunGuard.h"
#include "interpreter/Semantics.h"
#include "values/CopyOut.h"

using namespace semantics;

namespace {

using WithNode = ParserTree::NodeImpl<ParserTree::With, true>;

constexpr int kHookInterval = 1024; // steps of an expression between two calls of the hook

/// Where the walk goes on when it has left the node for good.
Step stepBehind(const Step& step) {
    Node* node = step.node;
    // The branch that has run is the last of its statement.
    if (step.ascending && (node->Is(Kind::IfCond) || node->Is(Kind::SelectCase)))
        node = node->GetParent();
    if (!step.ascending && node->GetFirstChild())
        return {node->GetFirstChild(), false};
    return node->GetStepAfter();
}

/// The first statement behind the one in which the walk stands.
Node* statementBehind(Node* node) {
    while (node && !node->IsStatement())
        node = node->GetParent();
    if (!node)
        return nullptr;
    const long line = node->GetLine();
    Step step = node->GetStepAfter();
    while (step.node && (step.ascending || !step.node->IsStatement())) {
        SCL_ASSERT(step.ascending || step.node->GetLine() == line || step.node->GetLine() < 0,
                   "MacroParser::ResumeWith: the next statement stands on another line");
        if (step.node->Is(Kind::Function))
            return nullptr;
        step = stepBehind(step);
    }
    return step.node;
}

} // namespace

MacroPlaybackResult MacroParser::ResumeWith(char const* name) {
    if (!m_Current.node || !name)
        return pbNotHandled;
    UI_MacroVariant* object = findDialog(name);
    if (!object)
        return pbNotHandled;
    UI_MacroVariant dialog = CopyOut(object);
    for (Node* node = statementBehind(m_Current.node); node; node = node->GetNextSibling()) {
        if (!node->Is(Kind::With) || !static_cast<WithNode*>(node)->isDialog)
            return pbNotHandled;
        Node* expression = node->GetFirstChild();
        Node* context = expression ? expression->GetNextSibling() : nullptr;
        if (!context) {
            OnError("With context is broken");
            return pbFailed;
        }
        SCL_ASSERT(context->Is(Kind::WithContext), "MacroParser::ResumeWith: no context node");
        const Step step = findContext(expression, context);
        Cell* cell = findResult(expression);
        if (m_ExecutionMode == emStopped)
            return pbNotHandled; // the expression ended the run
        if (step.node && cell && dialog.IsObjectSame(cell->value))
            return runDialogBlock(*static_cast<WithNode*>(node), step);
        if (cell)
            ExecutionContext::FreeCell(cell);
    }
    return pbNotHandled;
}

/// Runs the expression of a block, which may call procedures of any length, up to its context. No
/// node if it has ended the run.
ParserTree::Step MacroParser::findContext(Node* expression, const Node* context) {
    Step step{expression, false};
    for (int untilHook = kHookInterval; step.node && step.node != context; --untilHook) {
        if (untilHook == 0) {
            untilHook = kHookInterval;
            if (s_HasStatementHook)
                callStatementHook(step.node->GetLine());
            if (m_ExecutionMode == emStopped)
                return {};
        }
        step = step.ascending ? step.node->Leave(*this) : step.node->Enter(*this);
    }
    return step;
}

/// The object of a name, looked up without making or refusing anything.
UI_MacroVariant* MacroParser::findDialog(char const* name) {
    const MacroName* interned = MacroName::Intern(name);
    unsigned place = 0;
    UI_MacroVariant* value = lookUpEntry(interned);
    if (!value)
        value = findVariable(interned, place);
    return value ? value->getObject(false) : nullptr;
}

MacroPlaybackResult MacroParser::runDialogBlock(WithNode& with, ParserTree::Step start) {
    struct Entry {
        MacroParser& processor;
        WithNode& with;
        ParserTree::Step step;
        const ParserTree* tree;
        MacroPlaybackResult result;
        ~Entry() {
            --with.nestedRuns;
            if (processor.m_ExecutionMode != emStopped)
                processor.m_Current = processor.m_Tree.Get() == tree ? step : ParserTree::Step{};
            processor.m_ResultCode = result; // of the dialog around this one
        }
    } entry{*this, with, m_Current, m_Tree.Get(), m_ResultCode};
    const int frames = m_ContextStack->GetCount();
    const int blocks = m_ContextStack->Top()->GetBlockDepth();
    m_ResultCode = pbBlockDone;
    ++with.nestedRuns;
    m_Current = start;
    try {
        ExecutionStep();
    } catch (MacroPlaybackResult result) {
        m_ContextStack->PopTo(frames);
        while (m_ContextStack->Top()->GetBlockDepth() > blocks + 1)
            m_ContextStack->Top()->PopBlock();
        with.Leave(*this);
        m_ResultCode = result;
    }
    return m_ResultCode;
}
