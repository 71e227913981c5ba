#include "language/TreeBuilderImpl.h"

void TreeBuilder::OpenProcedure(const MacroToken& name, int access, bool isFunction) {
    if (m_Processor.IsInEvaluation())
        fail(errSyntax); // the procedure would die with the evaluated text
    if (tree().m_Function)
        fail(errIllegalNesting);
    m_Processor.CheckName(name.entry->text);
    auto* node = makeValue<ParserTree::Function>();
    node->name = name.entry->text;
    node->description = m_Processor.GetScanner().GetCommentText();
    node->description.TrimLeft().TrimRight();
    m_Processor.GetScanner().ClearCommentText();
    node->isFunction = isFunction ? 1 : 0;
    node->access = access;
    tree().m_Parent->AppendChild(node);
    tree().OpenBlock(node);
    tree().m_Function = node;
    auto& procedures = m_Processor.GetProcedures();
    procedures.Install(node->name, FunctionTableItem(node));
    node->slot = procedures.Lookup(node->name);
    if (isFunction)
        m_Processor.Declare(node->name, false);
}

void TreeBuilder::Argument(const MacroToken& name, int mode, bool isArray) {
    m_Processor.CheckName(name.entry->text);
    ParserTree::Argument argument;
    argument.name = name.entry->text;
    argument.mode = mode;
    argument.isArray = isArray;
    argument.interned = name.entry->Name();
    tree().m_Function->arguments.push_back(argument);
    m_Processor.Declare(name.entry->text, false);
}

void TreeBuilder::CloseProcedure(bool isFunction) {
    auto* node = openBlock<ParserTree::Function, false>();
    if (!node)
        fail(errEndWithoutHeader);
    if ((node->isFunction != 0) != isFunction)
        fail(isFunction ? errNotInFunction : errNotInSub);
    makeStatement<ParserTree::FunctionEnd>();
    tree().CloseBlock();
    tree().m_Function = nullptr;
    node->Unlink(); // the run must not enter it in passing
}

// --- Dim and ReDim -----------------------------------------------------------------------------

void TreeBuilder::OpenDim() { tree().OpenBlock(makeStatement<ParserTree::Dim>()); }

void TreeBuilder::CloseDim() {
    Node* node = tree().m_Parent;
    tree().CloseBlock();
    if (!node->GetFirstChild())
        node->Unlink();
}

void TreeBuilder::Variable(const MacroToken& name) {
    auto* node = makeValue<ParserTree::VarDecl>();
    node->procedure = tree().m_Function;
    m_Processor.Declare(name.entry->text, false);
    node->name = name.entry->text; // only now: releasing the node takes the declaration back
}

void TreeBuilder::Array(const MacroToken& name, const MacroToken& subscripts) {
    auto* node = makeValue<ParserTree::VarDecl>();
    node->procedure = tree().m_Function;
    node->AppendChild(operand(subscripts));
    tree().m_Parent->AppendChild(node);
    m_Processor.Declare(name.entry->text, false);
    node->name = name.entry->text;
}

MacroToken TreeBuilder::Redeclaration(const MacroToken& name, const MacroToken& subscripts) {
    auto* node = makeValue<ParserTree::ArrRedecl>();
    node->name = name.entry->text;
    node->AppendChild(operand(subscripts));
    return tokenOf(node);
}

MacroToken TreeBuilder::RedeclList(const MacroToken& first) {
    auto* node = makeValue<ParserTree::Result<SCC_Array<_ArrayDecl>>>();
    node->AppendChild(operand(first));
    return tokenOf(node);
}

void TreeBuilder::Redim(const MacroToken& list, bool preserve) {
    auto* node = makeStatement<ParserTree::Redim>();
    node->preserve = preserve;
    node->AppendChild(operand(list));
}

MacroToken TreeBuilder::SubscriptList() {
    return tokenOf(makeValue<ParserTree::Result<SCC_Array<_ArraySubscript>>>());
}

MacroToken TreeBuilder::SubscriptList(const MacroToken& first) {
    return Append(SubscriptList(), first);
}

MacroToken TreeBuilder::Subscript(const MacroToken& upper) {
    auto* node = makeValue<ParserTree::Result<_ArraySubscript>>();
    node->AppendChild(operand(upper));
    return tokenOf(node);
}

MacroToken TreeBuilder::Subscript(const MacroToken& lower, const MacroToken& upper) {
    auto* node = makeValue<ParserTree::Result<_ArraySubscript>>();
    node->AppendChild(operand(lower));
    node->AppendChild(operand(upper));
    return tokenOf(node);
}

// --- Const -------------------------------------------------------------------------------------

void TreeBuilder::OpenConst(int access) {
    auto* node = makeStatement<ParserTree::Const>();
    node->access = access;
    node->procedure = tree().m_Function;
    tree().OpenBlock(node);
}

void TreeBuilder::ConstItem(const MacroToken& name, const MacroToken& value) {
    m_Processor.Declare(name.entry->text, true);
    auto* node = openBlock<ParserTree::Const, true>();
    if (!node)
        fail(errInternal);
    ParserTree::ConstItem item;
    item.name = name.entry->text;
    item.value = operand(value);
    node->items.push_back(item);
    node->AppendChild(item.value);
}

void TreeBuilder::CloseConst() { tree().CloseBlock(); }
