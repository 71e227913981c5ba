#pragma once

// Shared by the parts of the tree builder.

#include <UI_MacroProcessor.h>

#include "language/TreeBuilder.h"

inline ParserTree& TreeBuilder::tree() const { return m_Processor.GetTree(); }

inline MacroToken TreeBuilder::tokenOf(Node* node) {
    MacroToken token;
    token.node = node;
    return token;
}

template <class T> ParserTree::NodeImpl<T, false>* TreeBuilder::makeValue() {
    return tree().Create<ParserTree::NodeImpl<T, false>>();
}

template <class T> ParserTree::NodeImpl<T, true>* TreeBuilder::makeStatement() {
    auto* node = tree().Create<ParserTree::NodeImpl<T, true>>();
    tree().m_Parent->AppendChild(node);
    return node;
}

template <class T, bool IsStatement>
ParserTree::NodeImpl<T, IsStatement>* TreeBuilder::openBlock() const {
    Node* block = tree().m_Parent;
    if (!block || !block->Is(T::kKind))
        return nullptr;
    return static_cast<ParserTree::NodeImpl<T, IsStatement>*>(block);
}
