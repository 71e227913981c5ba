// Running another macro file in the middle of this one, in the same frame.
//
// The statement that got a script to run grows a ScriptExec child; the root of the file's unit
// hangs below it for the time of the run. A file is parsed once for a tree.

#include "interpreter/ScriptExecution.h"

#include <SCL_Path.h>

#include "interpreter/Semantics.h"

using namespace semantics;

namespace {

using ScriptNode = ParserTree::NodeImpl<ParserTree::ScriptExec, false>;

/// Whether the unit is running already: above the node, or below an open call.
bool isRunning(MacroParser& processor, ParserTree::Node& node, ParserTree::ScriptUnit* unit) {
    const auto stands = [unit](ParserTree::Node* from) {
        for (; from; from = from->GetParent())
            if (from == &unit->m_Root)
                return true;
        return false;
    };
    if (stands(&node))
        return true;
    for (ExecutionContext* frame = processor.GetFrames().Top(); frame; frame = frame->m_Below)
        for (ContextBlock* block = frame->m_TopBlock; block; block = block->below)
            if (block->kind == ContextBlock::kCall && stands(block->node))
                return true;
    return false;
}

/// Parses the file into a new unit, or leaves the tree as it was.
ParserTree::ScriptUnit* parseUnit(MacroParser& processor, const SYS_String& key) {
    MacroSource* current = processor.GetSource();
    SCL_Pointer<MacroSource> source(current ? current->Clone(key) : nullptr);
    if (processor.IsStopping())
        return nullptr; // the source has ended the run
    if (!source)
        processor.OnError("Failed to open script file");
    ParserTree& tree = processor.GetTree();
    struct Rollback {
        MacroParser& processor;
        ParserTree::ScriptUnit* caller;
        ParserTree::ScriptUnit* unit;
        ~Rollback() {
            if (!unit)
                return;
            processor.ForgetProceduresOf(unit);
            processor.SwitchUnit(caller);
            processor.GetTree().RemoveUnit(unit);
        }
    } rollback{processor, tree.GetCurrentUnit(), tree.GetUnit(key)};
    ParserTree::ScriptUnit* unit = rollback.unit;
    unit->source = source;
    tree.SetCurrentUnit(unit);
    if (!processor.ParseAll()) {
        if (processor.GetExecutionMode() == MacroSupport::emStopped)
            return nullptr; // the source ended the run
        throw MacroException(processor.GetLastErrorText(), key,
                             static_cast<int>(processor.GetLastErrorLine()), source);
    }
    rollback.unit = nullptr;
    return unit;
}

/// A second execution may stand in another frame, where the unit's variables do not exist yet.
void declareVariables(MacroParser& processor, ParserTree::ScriptUnit& unit) {
    FrameVariables& variables = processor.GetFrames().Top()->m_Variables;
    for (const SYS_String& name : unit.m_Variables)
        variables.FindOrMake(MacroName::Intern(name.View()));
}

} // namespace

ParserTree::Step StartScript(ParserTree::Node& statement, MacroParser& processor) {
    ParserTree::Node* first = statement.GetFirstChild();
    ParserTree::Node* script = first->GetNextSibling();
    if (!script) {
        script = processor.GetTree().CreateInFront<ScriptNode>(statement.GetPosition());
        statement.AppendChild(script);
    }
    return {script, false};
}

Step ParserTree::ScriptExec::OnEnter(Node& node, MacroParser& processor) {
    Node* call = node.GetPreviousSibling();
    Cell* cell = call ? processor.findResult(call) : nullptr;
    UI_MacroVariant* value = cell ? cell->value.GetRVal() : nullptr;
    if (!value || !value->IsExecScript())
        processor.OnError("There is no script path");
    const SYS_String key = SCL::PathNormalize(value->GetExecScriptVal(), true);
    value->Clear(); // the path is run once
    ExecutionContext::FreeCell(cell);

    ParserTree& tree = processor.GetTree();
    ScriptUnit* unit = tree.FindUnit(key);
    if (unit && isRunning(processor, node, unit))
        processor.OnError(errIllegalNesting, key);
    if (!unit)
        unit = parseUnit(processor, key);
    if (!unit)
        return {nullptr, false};
    processor.SwitchUnit(unit);
    declareVariables(processor, *unit);
    node.AppendChild(&unit->m_Root);
    return {&unit->m_Root, false};
}

Step ParserTree::ScriptExec::OnLeave(Node& node, MacroParser& processor) {
    if (Node* root = node.GetFirstChild())
        root->Unlink();
    if (node.GetPosition())
        processor.SwitchUnit(node.GetPosition()->script);
    // The statement must look fresh when it runs again.
    Node* statement = node.GetParent();
    const Step next = statement->GetStepAfter();
    node.Release(processor.GetTree());
    return next;
}
