#include "language/TreeBuilderImpl.h"

MacroToken TreeBuilder::Long(long long value) {
    auto* node = makeValue<ParserTree::LongValue>();
    node->value = value;
    return tokenOf(node);
}

MacroToken TreeBuilder::Double(double value) {
    auto* node = makeValue<ParserTree::DoubleValue>();
    node->value = value;
    return tokenOf(node);
}

MacroToken TreeBuilder::String(const MacroToken& text) {
    auto* node = makeValue<ParserTree::StringValue>();
    node->value = text.entry->text;
    return tokenOf(node);
}

MacroToken TreeBuilder::Bool(bool value) {
    auto* node = makeValue<ParserTree::BoolValue>();
    node->value = value;
    return tokenOf(node);
}

MacroToken TreeBuilder::Missing() { return tokenOf(makeValue<ParserTree::MissingValue>()); }

TreeBuilder::Node* TreeBuilder::makeUnary(int code, Node* operandNode) {
    auto* node = makeValue<ParserTree::UnaryOp>();
    node->code = code;
    node->AppendChild(operandNode);
    return node;
}

MacroToken TreeBuilder::Unary(int code, const MacroToken& value) {
    return tokenOf(makeUnary(code, operand(value)));
}

MacroToken TreeBuilder::Binary(int code, const MacroToken& left, const MacroToken& right) {
    auto* node = makeValue<ParserTree::BinaryOp>();
    node->code = code;
    node->AppendChild(operand(left));
    node->AppendChild(operand(right));
    return tokenOf(node);
}

MacroToken TreeBuilder::Object(const MacroToken& name, bool hasDot) {
    auto* node = makeValue<ParserTree::Object>();
    node->name = name.entry->text;
    node->interned = name.entry->Name();
    node->hasDot = hasDot;
    return tokenOf(node);
}

MacroToken TreeBuilder::Member(const MacroToken& prefix, const MacroToken& name) {
    Node* target = makeExec(operand(prefix));
    MacroToken member = Object(name, true);
    member.node->AppendChild(target);
    return member;
}

MacroToken TreeBuilder::Apply(const MacroToken& target, const MacroToken& arguments) {
    using ObjectNode = ParserTree::NodeImpl<ParserTree::Object, false>;
    auto* node = static_cast<ObjectNode*>(operand(target));
    if (node->hasArguments) {
        Node* value = makeExec(node);
        node = makeValue<ParserTree::Object>();
        node->interned = MacroName::Intern({});
        node->hasDot = true;
        node->AppendChild(value);
    }
    node->hasArguments = true;
    node->AppendChild(operand(arguments));
    return tokenOf(node);
}

TreeBuilder::Node* TreeBuilder::makeExec(Node* object) {
    auto* node = makeValue<ParserTree::ObjectExec>();
    node->AppendChild(object);
    return node;
}

MacroToken TreeBuilder::Exec(const MacroToken& object) {
    return tokenOf(makeExec(operand(object)));
}

MacroToken TreeBuilder::List() { return tokenOf(makeValue<ParserTree::VariantList>()); }

MacroToken TreeBuilder::List(const MacroToken& first) { return Append(List(), first); }

MacroToken TreeBuilder::Append(const MacroToken& list, const MacroToken& item) {
    operand(list)->AppendChild(operand(item));
    return list;
}

MacroToken TreeBuilder::Prepend(const MacroToken& list, const MacroToken& item) {
    operand(list)->PrependChild(operand(item));
    return list;
}
