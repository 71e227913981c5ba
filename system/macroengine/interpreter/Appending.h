#pragma once

// `text = text & more`: the variable's text grows in place, so that building a text piece by piece
// takes time in proportion to its length.
//
// The innermost join leaves its left operand out: it keeps what the variable held in the cell of
// the assignment's target, and its value is the text that follows. Outer joins append to that. If
// the variable still holds the same text when the assignment runs, the rest goes behind it; else
// the kept text comes back. So nothing is lost or seen half done, whatever an operand does.

#include "interpreter/Semantics.h"

namespace semantics {

/// Does a join in this way if it is the innermost one of such an assignment; false if it is not.
bool KeepForAppending(MacroParser& processor, Node& join, ParserTree::ValueSlots& slots);

/// The text that was kept for an assignment to this target, which is free for others then; false
/// if there is none.
bool TakeKeptText(MacroParser& processor, Node* target, SYS_String& kept);

/// Ends the assignment: the variable becomes the kept text and the rest.
void AppendToKept(UI_MacroVariant& variable, SYS_String& kept, const SYS_String& rest);

} // namespace semantics
