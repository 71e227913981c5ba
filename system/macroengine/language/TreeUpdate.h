#pragma once

// Brings the tree of the current unit in line with an edited text: the nodes of changed lines go,
// and these lines alone are parsed again.
//
// 1. A change marks lines. Nothing is released before it is known that the run can go on.
// 2. A block is marked as a whole: marks spread until no marked line opens or closes a block with
//    an unmarked one.
// 3. Marked lines are released: their nodes go, the record stays with line -1.
// 4. Each run of adjacent released lines is parsed as a text of its own. If that fails although
//    the text as a whole is sound, the lines are widened to the block around them.

#include <UI_MacroProcessor.h>

#include "language/SourceLines.h"

class TreeUpdate {
public:
    using Changes = SCL_Vector<MacroParser::LineChange>;
    using Position = ParserTree::Position;
    using Node = ParserTree::Node;

    enum class Result { Done, Open, Broken };

    explicit TreeUpdate(MacroParser& processor);
    TreeUpdate(const TreeUpdate&) = delete;
    TreeUpdate& operator=(const TreeUpdate&) = delete;
    ~TreeUpdate();

    /// Reads the text, marks what the changes touch, and numbers the lines anew. Re-enters: the
    /// source.
    void Mark(const Changes& changes);
    /// Releases what is marked and parses what has been released. `Open`: the text leaves a block
    /// open. `Broken`: the parse has to reach beyond the changes, into what is running; nothing of
    /// that is released. Raises: the error of a faulty text; the lines await another attempt.
    Result Parse();

private:
    /// A stretch of lines, the last one not included.
    struct Range {
        long first;
        long end;
    };

    SCL_Vector<Position*>& lines() const { return m_Unit.m_Lines; }
    Position* lineAt(long line) const;
    static bool awaitsParse(const Position* position) { return position && position->line < 0; }

    void insertLine(long line);
    void removeLine(long line);
    void changeLine(long line);
    void markLine(Position* position);
    void markBlockAt(long line);
    void markRange(Range range);
    void spreadMarks();
    void numberLines();

    void releaseMarked();
    void releaseRange(Range range);
    void forgetNamesOf(const Position& position);
    void forgetName(const SYS_String& name, ParserTree::Function* procedure, bool isConstant);

    bool parseRuns();
    bool parseRun(Range range, Node* scope);
    bool parseText(Range range, Node* scope);
    bool isBeforeCases(Range range, Node* scope, const Node* behind) const;
    Node* scopeBefore(long line) const;
    Node* siblingBehind(long line, const Node* scope) const;
    Range includeComments(Range range) const;
    Result widen();
    bool isSound();
    void refreshDescriptions();

    MacroParser& m_Processor;
    ParserTree& m_Tree;
    ParserTree::ScriptUnit& m_Unit;
    SourceLines m_Text;
    SCL_Vector<Position*> m_Marked;
    SCL_Vector<Position*> m_Removed;
};
