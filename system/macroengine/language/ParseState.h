#pragma once

// What surrounds a parse inside another one, or inside a run.

#include <UI_MacroProcessor.h>

#include <utility>

#include "language/Scanner.h"

/// Parsing turns names of lines and errors to the scanner; nested parses end inside out.
class ParsingFlag {
public:
    explicit ParsingFlag(bool& flag) : m_Flag(flag), m_Old(std::exchange(flag, true)) {}
    ~ParsingFlag() { m_Flag = m_Old; }
    ParsingFlag(const ParsingFlag&) = delete;
    ParsingFlag& operator=(const ParsingFlag&) = delete;

private:
    bool& m_Flag;
    bool m_Old;
};

/// Where a parse stands in the tree and the text, put aside while another unit is parsed.
class ParseState {
public:
    ParseState(ParserTree& tree, MacroScanner& scanner, bool keepsForm)
        : m_Tree(tree), m_Scanner(scanner), m_Parent(tree.m_Parent), m_Function(tree.m_Function) {
        m_Scan.expressionForm = keepsForm && scanner.GetState().expressionForm;
        m_Scanner.SwapState(m_Scan);
    }
    ~ParseState() {
        m_Tree.m_Parent = m_Parent;
        m_Tree.m_Function = m_Function;
        m_Scanner.SwapState(m_Scan);
    }
    ParseState(const ParseState&) = delete;
    ParseState& operator=(const ParseState&) = delete;

private:
    ParserTree& m_Tree;
    MacroScanner& m_Scanner;
    ParserTree::Node* m_Parent;
    ParserTree::NodeImpl<ParserTree::Function, false>* m_Function;
    MacroScanner::State m_Scan;
};
