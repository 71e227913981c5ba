#pragma once

// The frames of a run: variables, open blocks and value cells of each activation.

#include <MacroSource.h>
#include <SCL_Pointer.h>
#include <UI_MacroVariant.h>
#include <UI_ParserTree.h>

#include <cstdint>

#include "engine/Names.h"

/// The variables of one frame, in the order they were made. A variable keeps its address.
class FrameVariables {
public:
    FrameVariables() = default;
    FrameVariables(const FrameVariables&) = delete;
    FrameVariables& operator=(const FrameVariables&) = delete;
    ~FrameVariables() { Clear(); }

    UI_MacroVariantParam* Find(const MacroName* name) const {
        return (m_Bits & name->bit) ? search(name) : nullptr;
    }
    /// The same with a place remembered from an earlier look-up, which is brought up to date.
    UI_MacroVariantParam* Find(const MacroName* name, unsigned& place) const {
        if (place < m_Count && m_Entries[place].name == name)
            return m_Entries[place].value;
        return (m_Bits & name->bit) ? search(name, &place) : nullptr;
    }
    UI_MacroVariantParam* FindOrMake(const MacroName* name);
    /// Adds a variable that is known to be new.
    UI_MacroVariantParam* Add(const MacroName* name);
    bool Remove(const MacroName* name);
    void Clear();

    unsigned GetCount() const { return m_Count; }
    const MacroName* GetName(unsigned i) const { return m_Entries[i].name; }
    UI_MacroVariantParam* GetValue(unsigned i) const { return m_Entries[i].value; }

private:
    struct Entry {
        const MacroName* name;
        UI_MacroVariantParam* value;
    };

    UI_MacroVariantParam* search(const MacroName* name, unsigned* place = nullptr) const;
    void grow();
    void rebuildIndex();

    Entry* m_Entries = nullptr;
    unsigned* m_Index = nullptr; // open addressing over m_Entries, once there are many
    unsigned m_Count = 0;
    unsigned m_Capacity = 0;
    unsigned m_IndexSize = 0;
    std::uint64_t m_Bits = 0;
};

/// One open block inside a frame: a procedure call or a `With`.
struct ContextBlock {
    static constexpr int kCall = 275;
    static constexpr int kWith = 339;

    int kind = 0;
    int active = 1;                               // for With: whether it is a dialog block
    int position = 0;                             // order key: depth of the block in its frame
    ParserTree::Position* line = nullptr;         // of the block's statement
    ParserTree::Position* callPosition = nullptr; // of the calling node, as it was at the call
    ParserTree::Node* node = nullptr;             // the calling node, or the With
    UI_MacroVariant object;                       // of a With
    SYS_String name;                              // of a procedure
    ContextBlock* below = nullptr;

    static void* operator new(std::size_t size);
    static void operator delete(void* cell, std::size_t size);
};

/// One frame: the module level, or one activation of a procedure.
class ExecutionContext {
public:
    ExecutionContext() = default;
    ExecutionContext(const ExecutionContext&) = delete;
    ExecutionContext& operator=(const ExecutionContext&) = delete;
    ~ExecutionContext();

    static void* operator new(std::size_t size);
    static void operator delete(void* cell, std::size_t size);

    ParserTree::Cell* MakeCell(ParserTree::FrameResult<UI_MacroVariant>& owner);
    static void FreeCell(ParserTree::Cell* cell);
    /// Hands a cell, which must be the newest of its owner, to another node.
    static void MoveCell(ParserTree::Cell* cell, ParserTree::FrameResult<UI_MacroVariant>& to);
    /// Frees all value cells of this frame.
    void FreeCells();

    void PushBlock(ContextBlock* block); // takes ownership
    void PopBlock();
    int GetBlockDepth() const { return m_TopBlock ? m_TopBlock->position + 1 : 0; }

    FrameVariables m_Variables;
    ContextBlock* m_TopBlock = nullptr;
    ParserTree::Cell* m_FirstCell = nullptr;
    long m_Position = -1; // zero-based line
    SYS_String m_Name;
    SCL_Pointer<MacroSource> m_Source;
    ParserTree::NodeImpl<ParserTree::Function, false>* m_Function = nullptr;
    ExecutionContext* m_Below = nullptr;
};

/// The frames of one processor; index 0 is the top.
class FrameStack {
public:
    FrameStack() = default;
    FrameStack(const FrameStack&) = delete;
    FrameStack& operator=(const FrameStack&) = delete;
    ~FrameStack() { Clear(); }

    ExecutionContext* Top() const { return m_Top; }
    ExecutionContext* Bottom() const { return m_Bottom; }
    int GetCount() const { return m_Count; }
    bool IsEmpty() const { return m_Top == nullptr; }
    ExecutionContext* At(int fromTop) const;
    void Push(ExecutionContext* frame); // takes ownership
    ExecutionContext* Take();           // gives ownership away
    void Pop();
    void PopTo(int count);
    void Clear() { PopTo(0); }

private:
    ExecutionContext* m_Top = nullptr;
    ExecutionContext* m_Bottom = nullptr;
    int m_Count = 0;
};

inline ParserTree::Cell*
ExecutionContext::MakeCell(ParserTree::FrameResult<UI_MacroVariant>& owner) {
    auto* cell = new ParserTree::Cell;
    cell->owner = &owner;
    cell->below = owner.m_Top;
    cell->frame = this;
    cell->frameNext = m_FirstCell;
    if (m_FirstCell)
        m_FirstCell->framePrevious = cell;
    m_FirstCell = cell;
    owner.m_Top = cell;
    return cell;
}

inline void ExecutionContext::MoveCell(ParserTree::Cell* cell,
                                       ParserTree::FrameResult<UI_MacroVariant>& to) {
    cell->owner->m_Top = cell->below;
    cell->owner = &to;
    cell->below = to.m_Top;
    to.m_Top = cell;
}
