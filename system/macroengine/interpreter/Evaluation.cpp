// Evaluating a text with the frames of a macro that is paused, or has come to its end.

#include <UI_MacroProcessor.h>

#include <exception>
#include <utility>

#include "engine/Frames.h"
#include "interpreter/RunGuard.h"
#include "interpreter/WithinMemory.h"
#include "language/Scanner.h"
#include "values/CopyOut.h"

/// Puts the mode back after an evaluation, and the innermost frame's procedure: the evaluated text
/// stands in none, so that the procedure's own name calls it. Variables that the text has declared
/// go unless they are kept.
class EvaluationGuard {
public:
    explicit EvaluationGuard(MacroSupport& processor)
        : m_Processor(processor), m_Mode(processor.m_ExecutionMode),
          m_Frame(*processor.m_ContextStack->Top()), m_Known(m_Frame.m_Variables.GetCount()),
          m_Function(std::exchange(m_Frame.m_Function, nullptr)),
          m_WasEvaluating(std::exchange(processor.m_Evaluating, true)) {}
    EvaluationGuard(const EvaluationGuard&) = delete;
    EvaluationGuard& operator=(const EvaluationGuard&) = delete;
    ~EvaluationGuard() {
        if (!m_KeepsVariables)
            DropVariables();
        m_Frame.m_Function = m_Function;
        m_Processor.m_Evaluating = m_WasEvaluating;
        m_Processor.m_EvaluationStarts = false;
        m_Processor.m_Scanner->GetState().expressionForm = false;
        if (!m_Processor.m_StopPending)
            m_Processor.m_ExecutionMode = m_Mode;
    }

    void KeepVariables() { m_KeepsVariables = true; }
    void DropVariables() {
        FrameVariables& variables = m_Frame.m_Variables;
        while (variables.GetCount() > m_Known)
            variables.Remove(variables.GetName(variables.GetCount() - 1));
    }

private:
    MacroSupport& m_Processor;
    const MacroSupport::ExecutionMode m_Mode;
    ExecutionContext& m_Frame;
    const unsigned m_Known;
    bool m_KeepsVariables = false;
    ParserTree::NodeImpl<ParserTree::Function, false>* const m_Function;
    const bool m_WasEvaluating;
};

UI_MacroVariant MacroSupport::Eval(bool sideEffects) {
    const EntryGuard entry(*this);
    if (m_ContextStack->IsEmpty())
        pushBottomFrame();
    EvaluationGuard guard(*this);
    UI_MacroVariant result;
    if (!readEvaluation(sideEffects ? emEval : emEvalPure, guard))
        return result;
    if (sideEffects)
        guard.KeepVariables();
    ParserTree::Node* first = m_Current.node->GetFirstChild();
    const bool hasValue = isCallFirst();
    m_EvaluationStarts = true;
    PlayBack(0, m_Source, nullptr);
    if (m_StopPending)
        return result;
    if (hasValue)
        WithinMemory(*this, [&] {
            if (ParserTree::Cell* cell = findResult(first->GetFirstChild())) {
                UI_MacroVariant copy = CopyOut(cell->value.GetRVal());
                result.Take(copy);
            }
        });
    ClearLastError();
    return result;
}

/// Whether the parsed text begins with a call or an expression, whose value is the result.
bool MacroSupport::isCallFirst() const {
    const ParserTree::Node* first = m_Current.node ? m_Current.node->GetFirstChild() : nullptr;
    if (!first || !first->Is(ParserTree::Kind::Statement))
        return false;
    using StatementNode = ParserTree::NodeImpl<ParserTree::Statement, true>;
    return static_cast<const StatementNode*>(first)->code == 0;
}

/// Parses the source in one form. What an earlier attempt has declared goes.
bool MacroSupport::parseEvaluation(ExecutionMode mode, bool asExpression, EvaluationGuard& guard) {
    guard.DropVariables();
    m_ExecutionMode = mode;
    if (m_Source)
        m_Source->Reset();
    m_Scanner->GetState().expressionForm = asExpression;
    return Parse();
}

/// Parses the source in the form that fits it. `x = 1` is an assignment only where side effects
/// are wanted; `x - 1` would be a call with the argument -1 and is not.
bool MacroSupport::readEvaluation(ExecutionMode mode, EvaluationGuard& guard) {
    bool mayBeScript = true;
    if (mode == emEval) {
        try {
            mayBeScript = parseEvaluation(mode, false, guard);
            if (mayBeScript && !isCallFirst())
                return true;
        } catch (const MacroException&) {
            mayBeScript = false; // what is wrong is told of the expression
        }
        if (m_StopPending)
            return false;
    }
    std::exception_ptr failure;
    try {
        if (parseEvaluation(mode, true, guard))
            return true;
    } catch (const MacroException&) {
        failure = std::current_exception();
    }
    const LastError told = m_LastError;
    try {
        if (mayBeScript && !m_StopPending && parseEvaluation(mode, false, guard))
            return true;
    } catch (const MacroException&) {
        // Neither form: the first failure counts.
    }
    if (failure && !m_StopPending) {
        m_LastError = told;
        std::rethrow_exception(failure);
    }
    return false;
}
