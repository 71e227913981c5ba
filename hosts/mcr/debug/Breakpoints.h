#pragma once

#include "ScriptFiles.h"

#include <string>
#include <vector>

struct Breakpoint {
    int number;
    ScriptFile* file;
    long line; // from 0
};

/// The lines at which a run stops. They move with the lines of an edited text.
class Breakpoints {
public:
    bool IsEmpty() const { return m_Items.empty(); }
    const std::vector<Breakpoint>& GetAll() const { return m_Items; }
    /// Null if there is none.
    const Breakpoint* Find(const ScriptFile& file, long line) const;
    /// The one that stands on that line already, or a new one.
    const Breakpoint& Add(ScriptFile& file, long line);
    bool Remove(int number);
    void RemoveAll() { m_Items.clear(); }

    void OnInserted(const ScriptFile& file, long line);
    void OnRemoved(const ScriptFile& file, long line);
    /// Moves those that stand on no statement to the next one; gives what happened, in lines of
    /// text.
    std::string Settle(const ScriptFile& file);

private:
    std::vector<Breakpoint> m_Items;
    int m_LastNumber = 0;
};
