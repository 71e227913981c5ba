#include "language/TreeBuilderImpl.h"

#include "language/Tokens.h"
#include "runtime/PrintItems.h"

int TreeBuilder::NextToken(MacroToken& value) {
    int token = m_Processor.NextToken();
    if (token <= 0)
        return tokEnd;
    value = m_Processor.GetScanner().GetValue();
    return token;
}

void TreeBuilder::SyntaxError() { m_Processor.OnSyntaxError(m_Processor.GetParsePosition()); }

void TreeBuilder::fail(MacroERR_Code code) const {
    m_Processor.OnError(code, SYS_String());
    throw MacroException(code, SYS_String(), m_Processor.GetParsePosition(),
                         m_Processor.GetSource()); // an override came back
}

void TreeBuilder::fail(const char* text) const {
    m_Processor.OnError(SYS_String(text));
    throw MacroException(SYS_String(text), SYS_String(), m_Processor.GetParsePosition(),
                         m_Processor.GetSource()); // an override came back
}

TreeBuilder::Node* TreeBuilder::operand(const MacroToken& value, MacroERR_Code code) const {
    if (!value.node)
        fail(code);
    return value.node;
}

MacroERR_Code TreeBuilder::GetSyntaxErrorCode() const {
    const MacroScanner::State& scan = m_Processor.GetScanner().GetState();
    const int token = scan.lastToken;
    if (token == tokElse || token == tokElseIf) {
        auto* open = openBlock<ParserTree::If, true>();
        if ((open && open->hasElse) || (m_IfClosedAt && m_IfClosedAt == scan.tokenStart))
            return errElseWithoutIf;
    } else if (token == tokCase) {
        auto* open = openBlock<ParserTree::Select, true>();
        if (open && open->hasElse)
            return errEndIfWithoutIf;
    } else if (scan.previousToken == tokEndWord && (token == tokFunction || token == tokSub)) {
        auto* open = openBlock<ParserTree::Function, false>();
        if (open && token == tokFunction && !open->isFunction)
            return errNotInSub;
        if (open && token == tokSub && open->isFunction)
            return errNotInFunction;
    }
    return errSyntax;
}

MacroERR_Code TreeBuilder::GetOpenBlockCode(const Node& block) {
    switch (block.GetKind()) {
    case Kind::ForStm:
        return errForWithoutNext;
    case Kind::DoLoop:
        return errDoWithoutLoop;
    case Kind::WhileWend:
        return errWhileWithoutWend;
    default:
        return errIllegalNesting;
    }
}

// --- Statements that open no block -------------------------------------------------------------

// What a comment says belongs to the procedure behind it only if nothing stands between.
void TreeBuilder::EndStatement() { m_Processor.GetScanner().ClearCommentText(); }

TreeBuilder::Node* TreeBuilder::statement(int code, Node* first, Node* second) {
    auto* node = makeStatement<ParserTree::Statement>();
    node->code = code;
    node->AppendChild(first);
    if (second)
        node->AppendChild(second);
    return node;
}

void TreeBuilder::ObjectStatement(const MacroToken& object) { Call(object); }

void TreeBuilder::ObjectStatement(const MacroToken& object, const MacroToken& arguments) {
    auto* node = static_cast<ParserTree::NodeImpl<ParserTree::Object, false>*>(operand(object));
    if (node->hasArguments)
        fail("Mismatch between the argument lists");
    node->hasArguments = true;
    node->AppendChild(operand(arguments));
    Call(object);
}

void TreeBuilder::Call(const MacroToken& object) {
    auto* node = static_cast<ParserTree::NodeImpl<ParserTree::Object, false>*>(operand(object));
    node->isCall = true;
    statement(0, makeExec(node));
}

void TreeBuilder::Option(const MacroToken& name) {
    if (m_Processor.IsInEvaluation() || name.entry->text.CompareNoCase("explicit") != 0)
        fail(errSyntax);
    // While lines are parsed again, statements behind this one are there already.
    const long line = m_Processor.GetParsePosition();
    for (const Node* child = tree().m_Parent->GetFirstChild(); child;
         child = child->GetNextSibling())
        if (!tree().m_Updating || child->GetLine() <= line)
            fail("Expected statement");
    m_Processor.getOptions().explicitDeclarations = 1;
    if (auto* unit = tree().GetCurrentUnit())
        unit->m_ExplicitLines.push_back(
            {tree().GetOrCreatePosition(nullptr, line), tree().m_Parent});
}

void TreeBuilder::Let(const MacroToken& target, const MacroToken& value) {
    auto* node = static_cast<ParserTree::NodeImpl<ParserTree::Object, false>*>(operand(target));
    // Only the name that is put in front of an evaluated expression is empty.
    if (m_Processor.GetScanner().GetState().expressionForm && node->name.IsEmpty() &&
        !node->GetFirstChild()) {
        statement(0, operand(value));
        return;
    }
    statement(1, node, operand(value));
}

void TreeBuilder::Set(const MacroToken& target, const MacroToken& value) {
    statement(2, operand(target), operand(value));
}

void TreeBuilder::Print(const MacroToken& items, const MacroToken& stream) {
    statement(3, operand(items), operand(stream));
}

void TreeBuilder::Input(const MacroToken& targets, const MacroToken& stream) {
    statement(4, operand(targets), operand(stream));
}

void TreeBuilder::Randomize() { Randomize(Long(1)); }

void TreeBuilder::Randomize(const MacroToken& seed) { statement(5, operand(seed)); }

void TreeBuilder::Close(const MacroToken& streams) { statement(6, operand(streams)); }

void TreeBuilder::Width(const MacroToken& stream, const MacroToken& width) {
    statement(7, operand(stream), operand(width));
}

void TreeBuilder::Erase(const MacroToken& object) { statement(8, operand(object)); }

void TreeBuilder::Open(const MacroToken& name, const MacroToken& mode, const MacroToken& access,
                       const MacroToken& lock, const MacroToken& stream,
                       const MacroToken& recordLength) {
    auto* node = makeStatement<ParserTree::OpenFile>();
    node->mode = static_cast<ParserTree::FileOpenMode>(mode.flag);
    node->access = static_cast<ParserTree::FileAccessMode>(access.flag);
    node->lock = static_cast<ParserTree::FileLockMode>(lock.flag);
    node->AppendChild(operand(name));
    node->AppendChild(operand(stream));
    node->AppendChild(operand(recordLength));
}

MacroToken TreeBuilder::RecordLength(const MacroToken& word, const MacroToken& value) {
    if (word.entry->text.CompareNoCase("len") != 0)
        fail(errSyntax);
    return tokenOf(operand(value));
}

MacroToken TreeBuilder::printItem(MacroFunctionHandler handler, Node* count) {
    auto* item = makeValue<ParserTree::FunctionValue>();
    item->handler = handler;
    if (!count)
        return tokenOf(item);
    auto* list = makeValue<ParserTree::VariantValList>();
    list->AppendChild(item);
    list->AppendChild(count);
    return tokenOf(list);
}

MacroToken TreeBuilder::Tab() { return printItem(&PrintItemTab, nullptr); }

MacroToken TreeBuilder::Tab(const MacroToken& count) {
    return printItem(&PrintItemTab, operand(count));
}

MacroToken TreeBuilder::Spc() { return printItem(&PrintItemSpc, nullptr); }

MacroToken TreeBuilder::Spc(const MacroToken& count) {
    return printItem(&PrintItemSpc, operand(count));
}

MacroToken TreeBuilder::Semicolon() { return printItem(&PrintItemSemicolon, nullptr); }
