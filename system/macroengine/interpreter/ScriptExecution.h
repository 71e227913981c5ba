#pragma once

#include <UI_MacroProcessor.h>

/// Goes on with the file that the object of a call statement asks to run, inline.
ParserTree::Step StartScript(ParserTree::Node& statement, MacroParser& processor);
