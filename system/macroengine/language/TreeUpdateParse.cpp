// The second half of an update: what has been released is parsed again.

#include <algorithm>
#include <memory>
#include <utility>

#include "engine/Frames.h"
#include "language/ParseState.h"
#include "language/TreeUpdate.h"

using Kind = ParserTree::Kind;

TreeUpdate::Result TreeUpdate::Parse() {
    m_Tree.m_Pending = true;
    releaseMarked();
    Result result = Result::Done;
    if (!parseRuns())
        result = m_Processor.m_StopPending ? Result::Broken : isSound() ? widen() : Result::Open;
    if (result != Result::Done)
        return result;
    for (long i = 0; i < static_cast<long>(lines().size()); ++i)
        if (Position* position = lineAt(i))
            position->line = i;
    refreshDescriptions();
    m_Tree.m_Pending = false;
    m_Unit.m_Explicit = m_Processor.m_Options.explicitDeclarations;
    return Result::Done;
}

/// Parses all lines that have been released, run by run. False if one does not stand by itself.
bool TreeUpdate::parseRuns() {
    const long count = static_cast<long>(lines().size());
    Node* scope = &m_Unit.m_Root;
    for (long i = 0; i < count; ++i) {
        const Position* position = lineAt(i);
        if (awaitsParse(position)) {
            Range range{i, i + 1};
            for (long k = i + 1; k < count && (!lineAt(k) || awaitsParse(lineAt(k))); ++k)
                if (lineAt(k))
                    range.end = k + 1;
            range = includeComments(range);
            if (!parseRun(range, scope))
                return false;
            i = range.end - 1;
            for (long k = range.first; k < range.end; ++k)
                if (lineAt(k) && lineAt(k)->scope)
                    scope = lineAt(k)->scope;
            continue;
        }
        if (position && position->scope)
            scope = position->scope;
    }
    return std::none_of(m_Unit.m_ExplicitLines.begin(), m_Unit.m_ExplicitLines.end(),
                        [](const ParserTree::OptionLine& option) {
                            const Node* first = option.block->GetFirstChild();
                            return first && first->GetLine() < option.line->line;
                        });
}

/// Parses one run of lines into the block around it. False, with nothing of it left behind, if it
/// does not stand by itself there.
bool TreeUpdate::parseRun(Range range, Node* scope) {
    Node* const last = scope->GetLastChild();
    Node* const behind = siblingBehind(range.end, scope);
    bool stands = false;
    try {
        stands = parseText(range, scope) && !isBeforeCases(range, scope, behind);
    } catch (const MacroException&) {
        stands = false; // told by a parse of the whole text, if it is an error of that
    } catch (const ParserTree::BlockIsOutside&) {
        stands = false;
    } catch (...) {
        releaseRange(range);
        throw;
    }
    if (!stands) {
        releaseRange(range);
        return false;
    }
    Node* added = last ? last->GetNextSibling() : scope->GetFirstChild();
    while (behind && added && added != behind) {
        Node* const next = added->GetNextSibling();
        added->MoveBefore(behind);
        added = next;
    }
    for (long i = range.first; i < range.end; ++i)
        if (Position* position = lineAt(i))
            position->line = i;
    return true;
}

bool TreeUpdate::parseText(Range range, Node* scope) {
    SYS_String text = m_Text.GetLines(range.first, range.end);
    MacroScanner& scanner = m_Processor.GetScanner();
    const ParseState outer(m_Tree, scanner, false);
    const bool isWhole = range.first == 0 && range.end >= static_cast<long>(lines().size());
    using FunctionNode = ParserTree::NodeImpl<ParserTree::Function, false>;
    FunctionNode* const procedure =
        scope->Is(Kind::Function) ? static_cast<FunctionNode*>(scope) : scope->GetFunction();
    m_Tree.m_Parent = m_Tree.m_Floor = scope;
    m_Tree.m_Function = procedure;
    long start = range.first;
    while (start + 1 < range.end && m_Text.GetLines(start, start + 1).IsEmpty())
        ++start; // the second number of a `rem` line that stands above
    scanner.SetCurrentLine(static_cast<int>(start));
    MacroSource& source = *m_Processor.m_Source;
    source.SetPosition(start);
    source.SetNextPosition(start);
    m_Processor.ParseText(text, false);
    const bool dropsRest = scanner.GetState().stringIsOpen;
    if (isWhole)
        m_Unit.m_RestDropped = dropsRest;
    return (!dropsRest || isWhole) && m_Tree.m_Parent == scope && m_Tree.m_Function == procedure;
}

/// Whether the lines hold statements that stand before the first `Case`, where none may be.
bool TreeUpdate::isBeforeCases(Range range, Node* scope, const Node* behind) const {
    if (!scope->Is(Kind::Select))
        return false;
    const auto* select = static_cast<ParserTree::NodeImpl<ParserTree::Select, true>*>(scope);
    if (select->hasElse && (!behind || behind->IsStatement()))
        return false;
    for (long i = range.first; i < range.end; ++i)
        if (lineAt(i) && lineAt(i)->firstNode)
            return true;
    return false;
}

/// The node under which a statement at the beginning of that line stands.
TreeUpdate::Node* TreeUpdate::scopeBefore(long line) const {
    for (long i = line - 1; i >= 0; --i)
        if (const Position* position = lineAt(i); position && position->scope)
            return position->scope;
    return &m_Unit.m_Root;
}

/// The first child of the block that stands on that line or behind it, null if there is none.
TreeUpdate::Node* TreeUpdate::siblingBehind(long line, const Node* scope) const {
    for (long i = line; i < static_cast<long>(lines().size()); ++i) {
        const Position* position = lineAt(i);
        if (!position || position->line < 0)
            continue;
        for (Node* node = position->firstNode; node; node = node->GetNextOnLine()) {
            if (node->Is(Kind::Function) && node != scope) {
                if (position->blockEnd && position->blockEnd->line > i)
                    i = position->blockEnd->line; // a procedure hangs in no block
                break;
            }
            if (!node->GetParent())
                continue; // a declaration that does nothing
            while (node->GetParent() && node->GetParent() != scope)
                node = node->GetParent();
            return node->GetParent() ? node : nullptr;
        }
    }
    return nullptr;
}

/// The comment above a procedure is its description, so it is read along with the header.
TreeUpdate::Range TreeUpdate::includeComments(Range range) const {
    const auto isBare = [this](long line) {
        const Position* position = lineAt(line);
        const bool isEmpty = !position || (position->line >= 0 && !position->firstNode &&
                                           !position->scope && !position->blockBegin);
        const auto& options = m_Unit.m_ExplicitLines;
        return isEmpty && std::none_of(options.begin(), options.end(), [&](const auto& option) {
                   return position && option.line == position;
               });
    };
    while (range.first > 0 && isBare(range.first - 1))
        --range.first;
    return range;
}

/// Parses the whole text aside. Raises: its error. False if a block stays open in it.
bool TreeUpdate::isSound() {
    struct Aside {
        MacroParser& processor;
        SCL_Pointer<ParserTree> tree{new ParserTree(processor)};
        SCC_Map<SYS_StrNoCase, FunctionTableItem> functions;
        std::unique_ptr<FrameStack> frames{std::make_unique<FrameStack>()};
        MacroOptions options;
        explicit Aside(MacroParser& p) : processor(p) { swap(); }
        ~Aside() { swap(); }
        void swap() {
            tree.Swap(processor.m_Tree);
            std::swap(functions, processor.m_Functions);
            frames.swap(processor.m_ContextStack);
            std::swap(options, processor.m_Options);
        }
    } aside(m_Processor);
    m_Processor.pushBottomFrame();
    ParserTree& tree = m_Processor.GetTree();
    ParserTree::ScriptUnit* unit = tree.GetUnit(m_Unit.key);
    unit->source = m_Processor.m_Source;
    tree.SetCurrentUnit(unit);
    const ParseState outer(tree, m_Processor.GetScanner(), false);
    tree.m_Parent = &unit->m_Root;
    MacroSource& source = *m_Processor.m_Source;
    if (source.LineByLine())
        source.Reset(); // its lines know their own numbers, also that of the end
    source.SetPosition(0);
    source.SetNextPosition(0);
    SYS_String text = m_Text.GetText();
    if (!source.LineByLine())
        m_Processor.ParseText(text, false);
    else
        while (!m_Processor.m_StopPending && m_Processor.ParseLine(text)) {
        }
    if (tree.m_Parent == &unit->m_Root)
        return true;
    m_Processor.noteOpenBlock();
    return false;
}

/// The text is sound, its changed lines alone are not: parses more of what stands around them.
TreeUpdate::Result TreeUpdate::widen() {
    const long count =
        std::max(static_cast<long>(lines().size()), static_cast<long>(m_Text.GetCount()));
    lines().resize(static_cast<std::size_t>(count), nullptr);
    Range range{count, 0};
    for (long i = 0; i < count; ++i)
        if (awaitsParse(lineAt(i))) {
            range.first = std::min(range.first, i);
            range.end = i + 1;
        }
    if (range.end == 0)
        range = {0, count};
    for (;;) {
        markRange(range);
        spreadMarks();
        for (const Position* position : m_Marked) {
            range.first = std::min(range.first, position->line);
            range.end = std::max(range.end, position->line + 1);
        }
        if (m_Processor.breaksTheRun())
            return Result::Broken;
        releaseMarked();
        Node* scope = scopeBefore(range.first);
        if (parseRun(includeComments(range), scope))
            return Result::Done;
        if (range.first == 0 && range.end == count)
            break;
        const Position* opening = scope->GetPosition();
        if (!opening || opening->line < 0) {
            range = {0, count};
            continue;
        }
        range.first = std::min(range.first, opening->line);
        if (opening->blockEnd)
            range.end = std::max(range.end, opening->blockEnd->line + 1);
    }
    // What stops the whole text here is a name that another script has declared.
    parseText(range, &m_Unit.m_Root);
    return Result::Open;
}

/// Comments come and go above procedures that are not parsed again themselves.
void TreeUpdate::refreshDescriptions() {
    for (auto& entry : m_Processor.m_Functions) {
        auto* function = entry.value.GetDeclaration();
        const Position* header = function->GetPosition();
        if (!header || header->script != &m_Unit || header->firstNode != function)
            continue;
        const Range range = includeComments({header->line, header->line});
        if (range.first == range.end) {
            function->description.Clear();
            continue;
        }
        MacroScanner scanner;
        for (long i = range.first; i < range.end; ++i) {
            const SYS_String line = m_Text.GetLine(i);
            const char* cursor = line.c_str();
            scanner.SetText(&cursor);
            while (scanner.ScanToken() > 0) {
            }
        }
        function->description = scanner.GetCommentText();
        function->description.TrimLeft().TrimRight();
    }
}
