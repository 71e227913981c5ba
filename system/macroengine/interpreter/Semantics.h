#pragma once

// What the node classes share when they run.

#include <UI_MacroProcessor.h>

#include "engine/Frames.h"
#include "values/Access.h"

namespace semantics {

using Node = ParserTree::Node;
using Step = ParserTree::Step;
using Cell = ParserTree::Cell;
using Kind = ParserTree::Kind;

/// The cell of an operand. Raises: 46 if the node computes no value.
inline Cell& operand(MacroParser& processor, Node* node) {
    auto* slots = node ? node->GetResult() : nullptr;
    ExecutionContext* top = processor.GetFrames().Top();
    if (slots && top) {
        Cell* cell = slots->GetTop();
        return cell && cell->frame == top ? *cell : *top->MakeCell(*slots);
    }
    processor.OnError(errInternal, SYS_String());
    return *processor.getResultVal(node);
}

/// The value of a node's own cell. Raises: 46 without a frame.
inline UI_MacroVariant& ownResult(MacroParser& processor, ParserTree::ValueSlots& slots) {
    ExecutionContext* top = processor.GetFrames().Top();
    if (!top)
        processor.OnError(errInternal, SYS_String());
    Cell* cell = slots.GetTop();
    return cell && cell->frame == top ? cell->value : top->MakeCell(slots)->value;
}

/// Makes an operand's cell the node's own result.
inline void adopt(ParserTree::ValueSlots& slots, Cell& cell) {
    if (Cell* old = slots.GetTop(); old && old->frame == cell.frame)
        ExecutionContext::FreeCell(old);
    ExecutionContext::MoveCell(&cell, slots);
}

/// Raises: 46 in an evaluation without side effects, before anything is written.
inline void refuseToWrite(MacroParser& processor) {
    if (processor.GetExecutionMode() == MacroSupport::emEvalPure)
        processor.OnError(errInternal, SYS_String());
}

/// Truth of a condition.
inline bool isTrue(const UI_MacroVariant& value) {
    if (value.GetType() == vvtBoolean)
        return MacroVariantAccess::Integer(value) != 0;
    return static_cast<bool>(value);
}

/// `text`, or `text: 'description'` if there is a description.
SYS_String withDescription(const char* text, const SYS_String& description);

/// A clean slot for the node's result.
inline UI_MacroVariant& freshResult(MacroParser& processor, ParserTree::ValueSlots& slots) {
    UI_MacroVariant& value = ownResult(processor, slots);
    value.Clear();
    return value;
}

} // namespace semantics
