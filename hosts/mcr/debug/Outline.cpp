#include "Outline.h"

#include <HostSource.h>
#include <UI_MacroProcessor.h>

#include "ErrorText.h"

#include <algorithm>

namespace {

long firstStatementOf(const ParserTree::Node& procedure) {
    for (const auto* child = procedure.GetFirstChild(); child; child = child->GetNextSibling())
        if (child->IsStatementNode())
            return child->GetLine();
    return procedure.GetLine();
}

bool holdsStatement(const ParserTree::Position& line) {
    for (const auto* node = line.firstNode; node; node = node->GetNextOnLine())
        if (node->IsStatementNode())
            return true;
    return false;
}

} // namespace

Outline::Outline(const std::string& text, const std::string& name, Trace& trace) {
    MacroParser parser(true); // the current one until the end of this function
    try {
        const SCL_Pointer<MacroSource> source(
            new TextSource(SYS_String(text), name.c_str(), trace));
        parser.SetSource(source);
        if (parser.Parse()) {
            collect(parser);
            return;
        }
        m_Error = ShortErrorText(parser.GetLastErrorText());
        m_ErrorLine = parser.GetLastErrorLine();
    } catch (const MacroException& error) {
        m_Error = ShortErrorText(error.GetText());
        m_ErrorLine = error.GetPosition();
    }
    if (m_Error.empty())
        m_Error = "The macro cannot be parsed";
}

void Outline::collect(MacroParser& parser) {
    const ParserTree::ScriptUnit& unit = *parser.GetTree().GetCurrentUnit();
    for (const ParserTree::Position* line : unit.m_Lines)
        if (line && holdsStatement(*line))
            m_Statements.push_back(line->line);
    for (const auto& entry : parser.GetProcedures()) {
        const auto* declaration = entry.value.GetDeclaration();
        if (declaration)
            m_Procedures.push_back(
                {std::string(entry.value.GetName().View()), firstStatementOf(*declaration)});
    }
}

long Outline::FindStatement(long line) const {
    const auto found = std::lower_bound(m_Statements.begin(), m_Statements.end(), line);
    return found == m_Statements.end() ? -1 : *found;
}

const Outline::Procedure* Outline::FindProcedure(const std::string& name) const {
    const SYS_String wanted(name);
    for (const Procedure& procedure : m_Procedures)
        if (wanted.CompareNoCase(procedure.name.c_str()) == 0)
            return &procedure;
    return nullptr;
}
