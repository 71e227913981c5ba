#include "language/TreeUpdate.h"

#include <SCL_Assert.h>

#include <algorithm>

#include "engine/Frames.h"

using Kind = ParserTree::Kind;

TreeUpdate::TreeUpdate(MacroParser& processor)
    : m_Processor(processor), m_Tree(processor.GetTree()), m_Unit(*m_Tree.GetCurrentUnit()) {
    m_Tree.m_Updating = true;
}

TreeUpdate::~TreeUpdate() {
    m_Tree.m_Updating = false;
    m_Tree.m_Floor = nullptr;
    for (Position* position : m_Removed) // of an edit that came to nothing
        m_Unit.m_FreePositions.push_back(position);
}

TreeUpdate::Position* TreeUpdate::lineAt(long line) const {
    return line >= 0 && line < static_cast<long>(lines().size())
               ? lines()[static_cast<std::size_t>(line)]
               : nullptr;
}

// --- Marking -----------------------------------------------------------------------------------

void TreeUpdate::Mark(const Changes& changes) {
    m_Text.Read(*m_Processor.m_Source);
    if (auto* file = dynamic_cast<MacroSourceFile*>(m_Processor.m_Source.Get());
        file && file->HasFailed())
        m_Processor.refuseSource();
    const long most =
        std::max(static_cast<long>(lines().size()), static_cast<long>(m_Text.GetCount())) +
        static_cast<long>(changes.size());
    for (const MacroParser::LineChange& change : changes) {
        if (!SCL_ASSERT(change.kind >= 0 && change.kind <= 2 && change.line >= 0,
                        "MacroParser::Reparse: no such change") ||
            change.kind < 0 || change.kind > 2 || change.line < 0 || change.line >= most)
            continue;
        if (change.kind == 0)
            insertLine(change.line);
        else if (change.kind == 1)
            removeLine(change.line);
        else
            changeLine(change.line);
    }
    if (m_Unit.m_RestDropped) // what an open string has kept from being parsed is to be read now
        for (long i = 0; i < std::max<long>(m_Text.GetCount(), static_cast<long>(lines().size()));
             ++i)
            changeLine(i);
    numberLines();
    spreadMarks();
}

void TreeUpdate::insertLine(long line) {
    auto& table = lines();
    if (line < static_cast<long>(table.size()))
        table.insert(table.begin() + line, nullptr);
    markLine(m_Tree.GetOrCreatePosition(nullptr, line));
}

void TreeUpdate::removeLine(long line) {
    auto& table = lines();
    if (line >= static_cast<long>(table.size()))
        return;
    Position* position = lineAt(line);
    if (position) {
        markBlockAt(line);
        if (m_Tree.m_Anchor == position)
            m_Tree.m_Anchor =
                line > 0 ? (lineAt(line - 1) ? lineAt(line - 1)
                                             : m_Tree.GetOrCreatePosition(nullptr, line - 1))
                         : nullptr;
        markLine(position);
        position->isRemoved = true;
        m_Removed.push_back(position);
    }
    table.erase(table.begin() + line);
}

void TreeUpdate::changeLine(long line) {
    Position* position = lineAt(line);
    if (awaitsParse(position))
        return;
    markLine(position ? position : m_Tree.GetOrCreatePosition(nullptr, line));
}

void TreeUpdate::markLine(Position* position) {
    if (position->isMarked || position->line < 0)
        return;
    position->isMarked = true;
    m_Marked.push_back(position);
}

void TreeUpdate::markRange(Range range) {
    for (long i = range.first; i < range.end; ++i)
        if (Position* position = lineAt(i))
            markLine(position);
}

/// Marks the lines up to the other end of the block that a line opens or closes, while that line
/// still stands in the table.
void TreeUpdate::markBlockAt(long line) {
    const Position* position = lineAt(line);
    const auto isOther = [position](const Position* end) {
        return end && end != position && !end->isRemoved;
    };
    const long count = static_cast<long>(lines().size());
    if (isOther(position->blockEnd))
        for (long i = line + 1; i < count; ++i) {
            if (Position* other = lineAt(i))
                markLine(other);
            if (lineAt(i) == position->blockEnd)
                break;
        }
    if (isOther(position->blockBegin))
        for (long i = line - 1; i >= 0; --i) {
            if (Position* other = lineAt(i))
                markLine(other);
            if (lineAt(i) == position->blockBegin)
                break;
        }
}

void TreeUpdate::spreadMarks() {
    for (std::size_t i = 0; i < m_Marked.size(); ++i) {
        const Position& position = *m_Marked[i];
        if (position.isRemoved)
            continue;
        const Position* end = position.blockEnd;
        if (end && end != &position && !end->isRemoved && end->line > position.line)
            markRange({position.line + 1, end->line + 1});
        const Position* begin = position.blockBegin;
        if (begin && begin != &position && !begin->isRemoved && begin->line >= 0)
            markRange({begin->line, position.line});
    }
}

void TreeUpdate::numberLines() {
    long line = 0;
    for (Position* position : lines()) {
        if (position && position->line >= 0)
            position->line = line;
        ++line;
    }
}

// --- Releasing ---------------------------------------------------------------------------------

void TreeUpdate::releaseMarked() {
    const Node* current = m_Processor.m_Current.node;
    if (current && current->GetPosition() && current->GetPosition()->isMarked)
        m_Processor.m_Current = {nullptr, false};
    for (const Position* position : m_Marked)
        forgetNamesOf(*position);
    for (Position* position : m_Marked)
        m_Tree.ReleaseLine(*position);
    auto& options = m_Unit.m_ExplicitLines;
    std::erase_if(options, [](const auto& option) { return option.line->line < 0; });
    m_Processor.m_Options.explicitDeclarations = options.empty() ? 0 : 1;
    for (Position* position : m_Removed) {
        position->isRemoved = false;
        m_Unit.m_FreePositions.push_back(position);
    }
    m_Marked.clear();
    m_Removed.clear();
}

void TreeUpdate::releaseRange(Range range) {
    markRange(range);
    releaseMarked();
}

/// Takes back what the nodes of a line have declared.
void TreeUpdate::forgetNamesOf(const Position& position) {
    for (Node* node = position.firstNode; node; node = node->GetNextOnLine()) {
        if (node->Is(Kind::VarDecl)) {
            const auto* item = static_cast<ParserTree::NodeImpl<ParserTree::VarDecl, false>*>(node);
            forgetName(item->name, item->procedure, false);
        } else if (node->Is(Kind::Const)) {
            const auto* list = static_cast<ParserTree::NodeImpl<ParserTree::Const, true>*>(node);
            for (const ParserTree::ConstItem& item : list->items)
                forgetName(item.name, list->procedure, true);
        } else if (node->Is(Kind::Function)) {
            auto* function = static_cast<ParserTree::NodeImpl<ParserTree::Function, false>*>(node);
            const SYS_StrNoCase key(function->name);
            const FunctionTableItem* item = m_Processor.m_Functions.Lookup(key);
            if (item && item->GetDeclaration() == function)
                m_Processor.m_Functions.Remove(key);
        }
    }
}

/// The variable itself stays with its value. A constant is assigned anew when its line runs.
void TreeUpdate::forgetName(const SYS_String& name, ParserTree::Function* procedure,
                            bool isConstant) {
    const SYS_StrNoCase key(name);
    if (procedure) {
        procedure->locals.Remove(key);
    } else {
        m_Tree.m_GlobalNames.Remove(key);
        auto& variables = m_Unit.m_Variables;
        const auto found = std::find(variables.begin(), variables.end(), name);
        if (found != variables.end())
            variables.erase(found);
    }
    if (!isConstant)
        return;
    const MacroName* interned = MacroName::Intern(name.View());
    for (ExecutionContext* f = m_Processor.m_ContextStack->Top(); f; f = f->m_Below) {
        const ParserTree::Function* owner = f->m_Function;
        if (owner == procedure)
            if (UI_MacroVariantParam* variable = f->m_Variables.Find(interned))
                variable->SetConstant(false);
    }
}
