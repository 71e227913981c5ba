#include "engine/Frames.h"

#include <SCL_StaticAlloc.h>

namespace {

constexpr unsigned kLinearSearch = 12; // up to here a scan beats an index

template <class T> T* takeArray(unsigned count) {
    return static_cast<T*>(SCL::cStaticAlloc().allocate(sizeof(T) * count));
}

template <class T> void giveArray(T* array, unsigned count) {
    if (array)
        SCL::cStaticAlloc().deallocate(array, sizeof(T) * count);
}

} // namespace

// --- FrameVariables --------------------------------------------------------------------------

UI_MacroVariantParam* FrameVariables::search(const MacroName* name, unsigned* place) const {
    if (!m_Index) {
        for (unsigned i = 0; i < m_Count; ++i)
            if (m_Entries[i].name == name) {
                if (place)
                    *place = i;
                return m_Entries[i].value;
            }
        return nullptr;
    }
    for (unsigned slot = name->hash & (m_IndexSize - 1); m_Index[slot];
         slot = (slot + 1) & (m_IndexSize - 1)) {
        const unsigned i = m_Index[slot] - 1;
        if (m_Entries[i].name == name) {
            if (place)
                *place = i;
            return m_Entries[i].value;
        }
    }
    return nullptr;
}

UI_MacroVariantParam* FrameVariables::FindOrMake(const MacroName* name) {
    UI_MacroVariantParam* found = Find(name);
    return found ? found : Add(name);
}

UI_MacroVariantParam* FrameVariables::Add(const MacroName* name) {
    if (m_Count == m_Capacity)
        grow();
    void* cell = SCL::cStaticAlloc().allocate(sizeof(UI_MacroVariantParam));
    auto* value = new (cell) UI_MacroVariantParam(false);
    m_Entries[m_Count++] = {name, value};
    m_Bits |= name->bit;
    if (m_Index || m_Count > kLinearSearch) {
        if (m_Index && m_Count * 2 <= m_IndexSize) {
            unsigned slot = name->hash & (m_IndexSize - 1);
            while (m_Index[slot])
                slot = (slot + 1) & (m_IndexSize - 1);
            m_Index[slot] = m_Count;
        } else {
            rebuildIndex();
        }
    }
    return value;
}

void FrameVariables::grow() {
    const unsigned capacity = m_Capacity ? m_Capacity * 2 : 4;
    auto* entries = takeArray<Entry>(capacity);
    for (unsigned i = 0; i < m_Count; ++i)
        entries[i] = m_Entries[i];
    giveArray(m_Entries, m_Capacity);
    m_Entries = entries;
    m_Capacity = capacity;
}

void FrameVariables::rebuildIndex() {
    giveArray(m_Index, m_IndexSize);
    m_Index = nullptr;
    m_IndexSize = 0;
    if (m_Count <= kLinearSearch)
        return;
    m_IndexSize = 64;
    while (m_IndexSize < m_Count * 4)
        m_IndexSize *= 2;
    m_Index = takeArray<unsigned>(m_IndexSize);
    for (unsigned i = 0; i < m_IndexSize; ++i)
        m_Index[i] = 0;
    for (unsigned i = 0; i < m_Count; ++i) {
        unsigned slot = m_Entries[i].name->hash & (m_IndexSize - 1);
        while (m_Index[slot])
            slot = (slot + 1) & (m_IndexSize - 1);
        m_Index[slot] = i + 1;
    }
}

bool FrameVariables::Remove(const MacroName* name) {
    for (unsigned i = 0; i < m_Count; ++i) {
        if (m_Entries[i].name != name)
            continue;
        UI_MacroVariantParam* value = m_Entries[i].value;
        for (unsigned k = i + 1; k < m_Count; ++k)
            m_Entries[k - 1] = m_Entries[k];
        --m_Count;
        rebuildIndex();
        value->~UI_MacroVariantParam();
        SCL::cStaticAlloc().deallocate(value, sizeof(UI_MacroVariantParam));
        return true;
    }
    return false;
}

void FrameVariables::Clear() {
    for (unsigned i = 0; i < m_Count; ++i) {
        m_Entries[i].value->~UI_MacroVariantParam();
        SCL::cStaticAlloc().deallocate(m_Entries[i].value, sizeof(UI_MacroVariantParam));
    }
    giveArray(m_Entries, m_Capacity);
    giveArray(m_Index, m_IndexSize);
    m_Entries = nullptr;
    m_Index = nullptr;
    m_Count = m_Capacity = m_IndexSize = 0;
    m_Bits = 0;
}

// --- ContextBlock, ExecutionContext ----------------------------------------------------------

void* ContextBlock::operator new(std::size_t size) { return SCL::cStaticAlloc().allocate(size); }

void ContextBlock::operator delete(void* cell, std::size_t size) {
    SCL::cStaticAlloc().deallocate(cell, size);
}

void* ExecutionContext::operator new(std::size_t size) {
    return SCL::cStaticAlloc().allocate(size);
}

void ExecutionContext::operator delete(void* cell, std::size_t size) {
    SCL::cStaticAlloc().deallocate(cell, size);
}

ExecutionContext::~ExecutionContext() {
    FreeCells();
    while (m_TopBlock)
        PopBlock();
}

void ExecutionContext::FreeCell(ParserTree::Cell* cell) {
    ParserTree::Cell** link = &cell->owner->m_Top;
    while (*link != cell)
        link = &(*link)->below;
    *link = cell->below;
    if (cell->framePrevious)
        cell->framePrevious->frameNext = cell->frameNext;
    else
        cell->frame->m_FirstCell = cell->frameNext;
    if (cell->frameNext)
        cell->frameNext->framePrevious = cell->framePrevious;
    delete cell;
}

void ExecutionContext::FreeCells() {
    while (m_FirstCell)
        FreeCell(m_FirstCell);
}

void ExecutionContext::PushBlock(ContextBlock* block) {
    block->position = GetBlockDepth();
    block->below = m_TopBlock;
    m_TopBlock = block;
}

void ExecutionContext::PopBlock() {
    ContextBlock* block = m_TopBlock;
    m_TopBlock = block->below;
    delete block;
}

// --- FrameStack ------------------------------------------------------------------------------

ExecutionContext* FrameStack::At(int fromTop) const {
    ExecutionContext* frame = fromTop >= 0 ? m_Top : nullptr;
    while (frame && fromTop-- > 0)
        frame = frame->m_Below;
    return frame;
}

void FrameStack::Push(ExecutionContext* frame) {
    frame->m_Below = m_Top;
    m_Top = frame;
    if (!m_Bottom)
        m_Bottom = frame;
    ++m_Count;
}

ExecutionContext* FrameStack::Take() {
    ExecutionContext* frame = m_Top;
    m_Top = frame->m_Below;
    frame->m_Below = nullptr;
    if (!m_Top)
        m_Bottom = nullptr;
    --m_Count;
    return frame;
}

void FrameStack::Pop() { delete Take(); }

void FrameStack::PopTo(int count) {
    while (m_Count > count)
        Pop();
}
