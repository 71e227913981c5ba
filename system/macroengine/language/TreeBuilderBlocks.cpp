#include <SCL_Assert.h>

#include "language/Tokens.h"
#include "language/TreeBuilderImpl.h"

namespace {
constexpr int kUntil = 3; // the unary operator that negates a condition
}

// --- If ----------------------------------------------------------------------------------------

void TreeBuilder::OpenIf(const MacroToken& condition) {
    Node* test = operand(condition);
    auto* node = makeStatement<ParserTree::If>();
    node->AppendChild(test);
    tree().OpenBlock(node);
    auto* branch = makeValue<ParserTree::IfCond>();
    node->AppendChild(branch);
    tree().OpenBlock(branch);
}

bool TreeBuilder::closeBranch() {
    if (!openBlock<ParserTree::IfCond, false>() && !openBlock<ParserTree::SelectCase, false>())
        return false;
    tree().CloseBlock();
    return true;
}

void TreeBuilder::ElseIf(const MacroToken& condition) {
    if (!openBlock<ParserTree::IfCond, false>())
        fail(errElseWithoutIf);
    closeBranch();
    auto* node = openBlock<ParserTree::If, true>();
    if (!node || node->hasElse)
        fail(errElseWithoutIf);
    node->AppendChild(operand(condition));
    auto* branch = makeValue<ParserTree::IfCond>();
    node->AppendChild(branch);
    tree().OpenBlock(branch);
}

void TreeBuilder::Else() {
    if (!openBlock<ParserTree::IfCond, false>())
        fail(errElseWithoutIf);
    closeBranch();
    auto* node = openBlock<ParserTree::If, true>();
    if (!node || node->hasElse)
        fail(errElseWithoutIf);
    node->hasElse = true;
}

// The word that ends the line may be an Else too many, which shows only after this.
void TreeBuilder::EndLineIf() {
    auto* node = openBlock<ParserTree::If, true>();
    if (node && node->hasElse)
        m_IfClosedAt = m_Processor.GetScanner().GetState().tokenStart;
    EndIf();
}

void TreeBuilder::EndIf() {
    if (openBlock<ParserTree::IfCond, false>())
        closeBranch();
    if (!openBlock<ParserTree::If, true>())
        fail(errEndIfWithoutIf);
    tree().CloseBlock();
}

// --- Select ------------------------------------------------------------------------------------

namespace {

/// A `Case` stands and falls with its `Select`: an edit of the one is an edit of the other.
void joinToSelect(ParserTree& tree, const ParserTree::Node& select, long line) {
    ParserTree::Position* const here = tree.GetOrCreatePosition(nullptr, line);
    if (here && select.GetPosition() && here != select.GetPosition())
        here->blockBegin = select.GetPosition();
}

} // namespace

void TreeBuilder::OpenSelect(const MacroToken& value) {
    Node* subject = operand(value);
    auto* node = makeStatement<ParserTree::Select>();
    node->AppendChild(subject);
    tree().OpenBlock(node);
}

void TreeBuilder::Case(const MacroToken& values) {
    if (openBlock<ParserTree::SelectCase, false>())
        closeBranch();
    auto* node = openBlock<ParserTree::Select, true>();
    if (!node || node->hasElse)
        fail(errEndIfWithoutIf);
    joinToSelect(tree(), *node, m_Processor.GetParsePosition());
    node->AppendChild(operand(values));
    auto* branch = makeValue<ParserTree::SelectCase>();
    node->AppendChild(branch);
    tree().OpenBlock(branch);
}

void TreeBuilder::CaseElse() {
    if (openBlock<ParserTree::SelectCase, false>())
        closeBranch();
    auto* node = openBlock<ParserTree::Select, true>();
    if (!node || node->hasElse)
        fail(errEndIfWithoutIf);
    joinToSelect(tree(), *node, m_Processor.GetParsePosition());
    node->hasElse = true;
}

void TreeBuilder::EndSelect() {
    if (openBlock<ParserTree::SelectCase, false>())
        closeBranch();
    if (!openBlock<ParserTree::Select, true>())
        fail(errEndIfWithoutIf);
    tree().CloseBlock();
}

// --- For ---------------------------------------------------------------------------------------

void TreeBuilder::OpenFor(const MacroToken& name, const MacroToken& start, const MacroToken& bound,
                          const MacroToken& step) {
    auto* node = makeStatement<ParserTree::ForStm>();
    tree().OpenBlock(node);
    auto* head = makeValue<ParserTree::ForCond>();
    head->variable = name.entry->text;
    head->interned = name.entry->Name();
    head->AppendChild(operand(start));
    head->AppendChild(operand(bound));
    head->AppendChild(operand(step));
    node->AppendChild(head);
}

void TreeBuilder::OpenForEach(const MacroToken& name, const MacroToken& object) {
    Node* items = makeExec(operand(object));
    auto* node = makeStatement<ParserTree::ForStm>();
    tree().OpenBlock(node);
    auto* head = makeValue<ParserTree::ForeachCond>();
    head->variable = name.entry->text;
    head->interned = name.entry->Name();
    head->AppendChild(items);
    node->AppendChild(head);
}

void TreeBuilder::Next() {
    auto* node = openBlock<ParserTree::ForStm, true>();
    Node* head = node ? node->GetFirstChild() : nullptr;
    if (!head || !(head->Is(Kind::ForCond) || head->Is(Kind::ForeachCond)))
        fail(errNextVariable);
    makeStatement<ParserTree::Next>();
    tree().CloseBlock();
}

void TreeBuilder::NextNamed(const MacroToken& name) {
    auto* node = openBlock<ParserTree::ForStm, true>();
    Node* head = node ? node->GetFirstChild() : nullptr;
    if (!head || !head->Is(Kind::ForCond))
        fail(errNextVariable);
    auto* loop = static_cast<ParserTree::NodeImpl<ParserTree::ForCond, false>*>(head);
    if (!(loop->variable == name.entry->text))
        fail(errNextVariable);
    Next();
}

// --- Do and While ------------------------------------------------------------------------------

void TreeBuilder::openDoLoop(Node* condition) {
    auto* node = makeStatement<ParserTree::DoLoop>();
    tree().OpenBlock(node);
    if (!condition)
        return;
    auto* head = makeValue<ParserTree::WhileCond>();
    head->AppendChild(condition);
    node->AppendChild(head);
}

void TreeBuilder::OpenDo() { openDoLoop(nullptr); }

void TreeBuilder::OpenDoWhile(const MacroToken& condition) { openDoLoop(operand(condition)); }

void TreeBuilder::OpenDoUntil(const MacroToken& condition) {
    openDoLoop(makeUnary(kUntil, operand(condition)));
}

void TreeBuilder::closeDoLoop(Node* condition) {
    auto* node = openBlock<ParserTree::DoLoop, true>();
    if (!node)
        fail(errLoopRequired);
    Node* first = node->GetFirstChild();
    if (!first || !first->Is(Kind::WhileCond)) {
        if (condition) {
            auto* tail = makeValue<ParserTree::WhileCond>();
            tail->AppendChild(condition);
            node->AppendChild(tail);
        } else if (!first) {
            fail("Loop without end");
        }
        makeStatement<ParserTree::Loop>();
    }
    tree().CloseBlock();
}

void TreeBuilder::Loop() { closeDoLoop(nullptr); }

void TreeBuilder::LoopWhile(const MacroToken& condition) { closeDoLoop(operand(condition)); }

void TreeBuilder::LoopUntil(const MacroToken& condition) {
    closeDoLoop(makeUnary(kUntil, operand(condition)));
}

void TreeBuilder::OpenWhile(const MacroToken& condition) {
    Node* test = operand(condition, errLoopRequired);
    auto* node = makeStatement<ParserTree::WhileWend>();
    tree().OpenBlock(node);
    auto* head = makeValue<ParserTree::WhileCond>();
    head->AppendChild(test);
    node->AppendChild(head);
}

void TreeBuilder::Wend() {
    if (!openBlock<ParserTree::WhileWend, true>())
        fail(errLoopRequired);
    tree().CloseBlock();
}

// --- With --------------------------------------------------------------------------------------

void TreeBuilder::OpenWith(const MacroToken& object, bool isDialog) {
    Node* subject = operand(object, errUnknown);
    auto* node = makeStatement<ParserTree::With>();
    node->isDialog = isDialog;
    node->AppendChild(subject);
    tree().OpenBlock(node);
    node->AppendChild(makeValue<ParserTree::WithContext>());
}

void TreeBuilder::EndWith(bool isDialog) {
    const auto* block = openBlock<ParserTree::With, true>();
    if (!block)
        fail(openBlock<ParserTree::ForStm, true>() ? errForWithoutNext : errIllegalNesting);
    SCL_ASSERT(block->isDialog == isDialog, "TreeBuilder::EndWith: closed by the other word");
    tree().CloseBlock();
}

// --- Exit --------------------------------------------------------------------------------------

void TreeBuilder::exitBlock(int token, Kind kind, MacroERR_Code code) {
    auto* node = makeStatement<ParserTree::Exit>();
    node->token = token;
    if (!node->FindEnclosing(kind)) {
        node->Unlink();
        fail(code);
    }
}

void TreeBuilder::ExitFor() { exitBlock(tokFor, Kind::ForStm, errForNotFound); }

void TreeBuilder::ExitDo() { exitBlock(tokDo, Kind::DoLoop, errDoNotFound); }

void TreeBuilder::exitProcedure(int token, bool isFunction, MacroERR_Code code) {
    auto* node = makeStatement<ParserTree::Exit>();
    node->token = token;
    auto* procedure = tree().m_Function;
    if (!procedure || (procedure->isFunction != 0) != isFunction) {
        node->Unlink();
        fail(code);
    }
}

void TreeBuilder::ExitSub() { exitProcedure(tokSub, false, errNotInSub); }

void TreeBuilder::ExitFunction() { exitProcedure(tokFunction, true, errNotInFunction); }
