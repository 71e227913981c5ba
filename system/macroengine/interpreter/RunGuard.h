#pragma once

#include <UI_MacroProcessor.h>

/// Surrounds every entry into a processor. A stop that was asked for inside takes effect when the
/// outermost entry ends, and so does the end of a processor whose owner has gone.
class EntryGuard {
public:
    explicit EntryGuard(MacroSupport& processor) : m_Processor(processor) {
        ++processor.m_Entries;
    }
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

private:
    MacroParser& m_Processor;
    ParserTree::NodeImpl<ParserTree::Function, false>* m_Function;
    ParserTree::ScriptUnit* m_Unit;
    int m_Frames;
    int m_Blocks;
    bool m_Done = false;
};
