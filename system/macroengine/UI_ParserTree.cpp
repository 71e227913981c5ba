#include "UI_ParserTree.h"

#include <SCL_Assert.h>
#include <SCL_StaticAlloc.h>
#include <UI_MacroProcessor.h>

#include <algorithm>

#include "engine/Frames.h"
#include "language/Scanner.h"

namespace {

void* take(std::size_t size) { return SCL::cStaticAlloc().allocate(size); }
void give(void* cell, std::size_t size) { SCL::cStaticAlloc().deallocate(cell, size); }

} // namespace

void* ParserTree::Cell::operator new(std::size_t size) { return take(size); }
void ParserTree::Cell::operator delete(void* cell, std::size_t size) { give(cell, size); }
void* ParserTree::Position::operator new(std::size_t size) { return take(size); }
void ParserTree::Position::operator delete(void* cell, std::size_t size) { give(cell, size); }
void* ParserTree::Node::operator new(std::size_t size) { return take(size); }
void ParserTree::Node::operator delete(void* cell, std::size_t size) { give(cell, size); }

template <> void ParserTree::FrameResult<UI_MacroVariant>::dropAll() {
    while (m_Top)
        ExecutionContext::FreeCell(m_Top);
}

// --- Node ------------------------------------------------------------------------------------

ParserTree::Node::~Node() {
    Unlink();
    while (m_FirstChild)
        m_FirstChild->Unlink();
    detachFromLine(this);
}

ParserTree::Step ParserTree::Node::Enter(MacroParser& processor) {
    if (m_FirstChild)
        return {m_FirstChild, false};
    return Leave(processor);
}

ParserTree::Step ParserTree::Node::Leave(MacroParser&) { return GetStepAfter(); }

void ParserTree::Node::OnContextChanged(MacroParser&) {}

void ParserTree::Node::Abandon(MacroParser& processor) { Leave(processor); }

void ParserTree::Node::Release(ParserTree& tree) {
    SCL_ASSERT(m_Kind != Kind::Root, "ParserTree::Node::Release: a root is never released");
    if (m_Kind != Kind::Root)
        tree.destroy(this);
}

bool ParserTree::Node::IsStatement() const { return m_IsStatement; }

void ParserTree::Node::AppendChild(Node* child) { insertChild(child, false); }

void ParserTree::Node::PrependChild(Node* child) { insertChild(child, true); }

void ParserTree::Node::insertChild(Node* child, bool atFront) {
    if (child == this || !child)
        return;
    child->Unlink();
    child->m_Parent = this;
    if (!m_FirstChild) {
        child->m_Next = child->m_Previous = child;
        m_FirstChild = child;
        return;
    }
    Node* last = m_FirstChild->m_Previous;
    child->m_Next = m_FirstChild;
    child->m_Previous = last;
    last->m_Next = child;
    m_FirstChild->m_Previous = child;
    if (atFront)
        m_FirstChild = child;
}

void ParserTree::Node::MoveBefore(Node* sibling) {
    Node* parent = sibling->m_Parent;
    if (sibling == this || !parent)
        return;
    Unlink();
    m_Parent = parent;
    m_Next = sibling;
    m_Previous = sibling->m_Previous;
    m_Previous->m_Next = this;
    sibling->m_Previous = this;
    if (parent->m_FirstChild == sibling)
        parent->m_FirstChild = this;
}

void ParserTree::Node::Unlink() {
    if (!m_Parent)
        return;
    SCL_ASSERT(m_Parent != this, "ParserTree::Node::Unlink: a node is its own parent");
    SCL_ASSERT(m_Next && m_Previous, "ParserTree::Node::Unlink: the ring is broken");
    if (m_Next == this) {
        SCL_ASSERT(m_Parent->m_FirstChild == this,
                   "ParserTree::Node::Unlink: an only child must be the first one");
        m_Parent->m_FirstChild = nullptr;
    } else {
        if (m_Parent->m_FirstChild == this)
            m_Parent->m_FirstChild = m_Next;
        m_Next->m_Previous = m_Previous;
        m_Previous->m_Next = m_Next;
    }
    m_Parent = m_Next = m_Previous = nullptr;
}

long ParserTree::Node::GetLine() const { return m_Position ? m_Position->line : -1; }

ParserTree::NodeImpl<ParserTree::Function, false>* ParserTree::Node::GetFunction() {
    for (Node* node = m_Parent; node; node = node->m_Parent)
        if (node->Is(Kind::Function))
            return static_cast<NodeImpl<Function, false>*>(node);
    return nullptr;
}

ParserTree::Node* ParserTree::Node::FindEnclosing(Kind kind) {
    for (Node* node = m_Parent; node; node = node->m_Parent) {
        if (node->Is(kind))
            return node;
        if (node->Is(Kind::Function))
            return nullptr;
    }
    return nullptr;
}

// --- Tree ------------------------------------------------------------------------------------

ParserTree::ParserTree(MacroParser& processor) : m_Processor(&processor) {}

ParserTree::~ParserTree() { freeUnits(); }

void ParserTree::freeUnits() {
    // A script that an error has left hangs in another unit: all roots come off before any node.
    for (auto& entry : m_Scripts)
        entry.value->m_Root.Unlink();
    for (auto& entry : m_Scripts)
        freeUnit(entry.value);
    m_Scripts.RemoveAll();
}

void ParserTree::Clear() {
    m_Processor->m_Current = {nullptr, false};
    m_Processor->m_CurrentFunction = nullptr;
    freeUnits();
    m_Script = nullptr;
    m_Parent = nullptr;
    m_Function = nullptr;
    m_Anchor = nullptr;
    m_AnchorStep = {};
    m_Floor = nullptr;
    m_Updating = m_Pending = false;
    m_GlobalNames.RemoveAll();
}

void ParserTree::attachToLine(Node* node, Position* position) {
    node->m_Position = position;
    node->m_NextOnLine = nullptr;
    if (position->lastNode)
        position->lastNode->m_NextOnLine = node;
    else
        position->firstNode = node;
    position->lastNode = node;
}

void ParserTree::attachInFront(Node* node, Position* position) {
    node->m_Position = position;
    node->m_NextOnLine = position->firstNode;
    position->firstNode = node;
    if (!position->lastNode)
        position->lastNode = node;
}

void ParserTree::detachFromLine(Node* node) {
    Position* position = node->m_Position;
    if (!position)
        return;
    node->m_Position = nullptr;
    Node* previous = nullptr;
    Node** link = &position->firstNode;
    while (*link && *link != node) {
        previous = *link;
        link = &previous->m_NextOnLine;
    }
    if (!*link)
        return;
    *link = node->m_NextOnLine;
    if (position->lastNode == node)
        position->lastNode = previous;
    node->m_NextOnLine = nullptr;
}

void ParserTree::destroy(Node* node) {
    if (m_Parent == node)
        m_Parent = nullptr;
    if (m_Function == node)
        m_Function = nullptr;
    delete node;
}

void ParserTree::freeNodesOf(Position* position) {
    Node* node = position->firstNode;
    position->firstNode = position->lastNode = nullptr;
    while (node) {
        Node* next = node->m_NextOnLine;
        // The whole unit goes: links to other nodes of it mean nothing any more.
        node->m_Position = nullptr;
        node->m_Parent = node->m_FirstChild = nullptr;
        delete node;
        node = next;
    }
}

void ParserTree::freeUnit(ScriptUnit* unit) {
    unit->m_Root.Unlink();
    unit->m_Root.m_FirstChild = nullptr;
    for (Position* position : unit->m_Lines)
        if (position) {
            freeNodesOf(position);
            delete position;
        }
    for (Position* position : unit->m_FreePositions) {
        freeNodesOf(position);
        delete position;
    }
    delete unit;
}

ParserTree::Position* ParserTree::currentLine() {
    return GetOrCreatePosition(nullptr, m_Processor->GetParsePosition());
}

ParserTree::Position* ParserTree::GetOrCreatePosition(Node* node, long line) {
    if (!SCL_ASSERT(line >= 0, "ParserTree::GetOrCreatePosition: negative line"))
        return nullptr;
    const auto index = static_cast<std::size_t>(line);
    auto& lines = m_Script->m_Lines;
    if (index >= lines.size()) {
        if (index >= lines.capacity())
            lines.reserve(std::max<std::size_t>(64, index * 2));
        lines.resize(index + 1, nullptr);
    }
    Position*& entry = lines[index];
    if (!entry) {
        auto& unused = m_Script->m_FreePositions;
        if (!unused.empty()) {
            entry = unused.back();
            unused.pop_back();
        } else {
            entry = new Position;
            entry->script = m_Script;
        }
    }
    if (node)
        attachToLine(node, entry);
    entry->line = static_cast<long>(index);
    return entry;
}

ParserTree::ScriptUnit* ParserTree::FindUnit(const SYS_String& key) {
    ScriptUnit** found = m_Scripts.Lookup(key);
    return found ? *found : nullptr;
}

ParserTree::ScriptUnit* ParserTree::GetUnit(const SYS_String& key) {
    if (ScriptUnit* found = FindUnit(key))
        return found;
    auto* unit = new ScriptUnit;
    unit->key = key;
    m_Scripts.Install(key, unit);
    return unit;
}

void ParserTree::RemoveUnit(ScriptUnit* unit) {
    m_Scripts.Remove(SYS_String(unit->key));
    if (m_Script == unit)
        m_Script = nullptr;
    freeUnit(unit);
}

void ParserTree::SetCurrentUnit(ScriptUnit* unit) {
    m_Script = unit;
    m_Processor->m_Source = unit->source;
    m_Processor->m_Options.explicitDeclarations = unit->m_Explicit;
    SCL_ASSERT(unit->source.Get() == m_Processor->GetSource(),
               "ParserTree::SetCurrentUnit: the unit has another source");
}

void ParserTree::OpenBlock(Node* node) {
    m_Parent = node;
    if (Position* position = node->m_Position)
        position->scope = node;
}

void ParserTree::CloseBlock() {
    Node* block = m_Parent;
    if (block && block == m_Floor)
        throw BlockIsOutside();
    SCL_ASSERT(block && block->m_Parent, "ParserTree::CloseBlock: no block is open");
    if (!block || !block->m_Parent)
        return;
    Position* closing = GetOrCreatePosition(nullptr, m_Processor->GetParsePosition());
    Position* opening = block->m_Position;
    if (!closing) {
        m_Parent = block->m_Parent;
        return;
    }
    if (opening && opening != closing) {
        closing->blockBegin = opening;
        opening->blockEnd = closing;
    }
    m_Parent = block->m_Parent;
    closing->scope = m_Parent;
}

void ParserTree::FinishParse() {
    m_Parent = nullptr;
    SCL_ASSERT(!m_Function, "ParserTree::FinishParse: a procedure is still open");
    m_Function = nullptr;
    m_Script->m_Explicit = m_Processor->m_Options.explicitDeclarations;
}

void ParserTree::BeginUpdate() {
    m_Processor->m_Current = {nullptr, false};
    m_Processor->m_CurrentFunction = nullptr;
    m_Parent = m_Script ? &m_Script->m_Root : nullptr;
}

void ParserTree::ReleaseLine(Position& position) {
    while (position.firstNode)
        position.firstNode->Release(*this);
    position.blockBegin = position.blockEnd = nullptr;
    position.scope = nullptr;
    position.line = -1;
    position.isMarked = false;
}
