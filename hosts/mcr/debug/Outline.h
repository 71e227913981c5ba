#pragma once

#include <string>
#include <vector>

class MacroParser;
class Trace;

/// What a text is made of, found by parsing it apart from the macro that is being debugged.
/// Lines count from 0.
class Outline {
public:
    struct Procedure {
        std::string name;
        long firstStatement; // its end, if it is empty
    };

    Outline() = default;
    /// A text that does not parse has an error and nothing else.
    Outline(const std::string& text, const std::string& name, Trace& trace);

    bool IsBroken() const { return !m_Error.empty(); }
    const std::string& GetError() const { return m_Error; }
    long GetErrorLine() const { return m_ErrorLine; }

    /// The first line from this one on where a run can stop, or -1.
    long FindStatement(long line) const;
    /// The procedure of a name, in any case; null if there is none.
    const Procedure* FindProcedure(const std::string& name) const;

private:
    void collect(MacroParser& parser);

    std::vector<long> m_Statements; // sorted
    std::vector<Procedure> m_Procedures;
    std::string m_Error;
    long m_ErrorLine = 0;
};
