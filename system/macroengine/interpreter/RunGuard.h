#pragma once

#include <UI_MacroProcessor.h>

/// Surrounds every entry into a processor. A stop that was asked for inside takes effect when the
/// outermost entry ends, and so does the end of a processor whose owner has gone.
class EntryGuard {
public:
    explicit EntryGuard(MacroSupport& processor) : m_Processor(processor) { ++processor.m_Entries; }
    EntryGuard(const EntryGuard&) = delete;
    EntryGuard& operator=(const EntryGuard&) = delete;
    ~EntryGuard();

private:
    MacroSupport& m_Processor;
};

/// Surrounds every entry into the run: counts it, and puts frames, blocks, unit and procedure
/// back to what they were on every way out. Frames above the entry are gone after it.
class RunGuard {
public:
    /// Raises 42 when runs, of all processors together, are nested too deep on the native stack.
    explicit RunGuard(MacroParser& processor);
    RunGuard(const RunGuard&) = delete;
    RunGuard& operator=(const RunGuard&) = delete;
    ~RunGuard();

    /// The walk came to its end; what follows is no failure.
    void SetDone() { m_Done = true; }

    /// The guard of the run around this one, and the node at which that run stands.
    const RunGuard* GetOuter() const { return m_Outer; }
    const ParserTree::Node* GetNode() const { return m_Node; }
    /// Whether the tree is still the one of the entry; after an edit that failed it is not.
    bool IsSameTree() const { return &m_Processor.GetTree() == m_Tree; }

private:
    MacroParser& m_Processor;
    RunGuard* m_Outer;
    const ParserTree* m_Tree;
    const ParserTree::Node* m_Node;
    bool m_BetweenSteps;
    ParserTree::NodeImpl<ParserTree::Function, false>* m_Function;
    ParserTree::ScriptUnit* m_Unit;
    int m_Frames;
    int m_Blocks;
    bool m_Done = false;
};
