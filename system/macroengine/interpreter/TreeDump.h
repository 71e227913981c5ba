#pragma once

// The parse tree as text, for tests and for people.

#include <UI_ParserTree.h>

#include <string>

/// Appends the tree, one node a line, indented by two blanks a level: the module code of each
/// unit, then its procedures in order of their lines. Raises: never.
void DumpTree(const ParserTree& tree, std::string& out);
/// Appends one node and what stands below it.
void DumpNode(const ParserTree::Node& node, std::string& out, int level = 0);
