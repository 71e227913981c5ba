#include "interpreter/FileStatements.h"

using namespace semantics;

namespace {

int numberOf(MacroParser& processor, Node* node) {
    return static_cast<int>(operand(processor, node).value);
}

} // namespace

void semantics::printToFile(Node& node, MacroParser& processor) {
    Node* list = node.GetFirstChild();
    const int stream = numberOf(processor, list->GetNextSibling());
    UI_MacroArray& items = operand(processor, list).value.Arrval();
    processor.OnPrint(items.WritableData(), items.GetCount(), stream);
}

void semantics::inputFromFile(Node& node, MacroParser& processor) {
    Node* list = node.GetFirstChild();
    const int stream = numberOf(processor, list->GetNextSibling());
    UI_MacroArray& targets = operand(processor, list).value.Arrval();
    processor.OnInput(targets.WritableData(), targets.GetCount(), stream);
}

void semantics::closeFiles(Node& node, MacroParser& processor) {
    UI_MacroArray& numbers = operand(processor, node.GetFirstChild()).value.Arrval();
    if (numbers.GetCount() < 1)
        processor.CloseAllFiles();
    else
        processor.OnClose(numbers.WritableData(), numbers.GetCount());
}

void semantics::setFileWidth(Node& node, MacroParser& processor) {
    Node* stream = node.GetFirstChild();
    const int number = numberOf(processor, stream);
    processor.OnWidth(number, numberOf(processor, stream->GetNextSibling()));
}

Step ParserTree::OpenFile::OnLeave(Node& node, MacroParser& processor) {
    refuseToWrite(processor);
    Node* name = node.GetFirstChild();
    Node* stream = name->GetNextSibling();
    Node* length = stream->GetNextSibling();
    const auto path = static_cast<SYS_String>(operand(processor, name).value);
    const int number = numberOf(processor, stream);
    processor.OnOpen(path, mode, number, access, lock, numberOf(processor, length));
    for (Node* child = name; child; child = child->GetNextSibling())
        processor.releaseResult(child);
    return node.GetStepAfter();
}
