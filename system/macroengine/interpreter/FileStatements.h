#pragma once

#include "interpreter/Semantics.h"

namespace semantics {

// The statements about files. Their operands have been computed into the children's cells.

void printToFile(Node& node, MacroParser& processor);
void inputFromFile(Node& node, MacroParser& processor);
void closeFiles(Node& node, MacroParser& processor);
void setFileWidth(Node& node, MacroParser& processor);

} // namespace semantics
