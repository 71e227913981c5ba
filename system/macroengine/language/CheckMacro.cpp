// Parsing without running: whether a text is a macro, and what stands in it.

#include <SCL_Path.h>
#include <UI_MacroImpl.h>

#include <algorithm>

#include "engine/Frames.h"
#include "interpreter/RunGuard.h"
#include "language/Scanner.h"
#include "language/TextLines.h"
#include "language/Tokens.h"

namespace {

using Node = ParserTree::Node;
using Kind = ParserTree::Kind;
template <class T> using ValueNode = ParserTree::NodeImpl<T, false>;
using ConstNode = ParserTree::NodeImpl<ParserTree::Const, true>;

/// A text that is given as a whole.
class WholeText : public MacroSource {
public:
    WholeText(const SYS_String& text, const SYS_String& name) : m_Text(text), m_Name(name) {}

    void Reset() override {
        SetPosition(0);
        SetNextPosition(0);
        m_Given = false;
    }
    int GetNextLine(SYS_String& line, bool) override {
        if (m_Given)
            return 0;
        m_Given = true;
        line = m_Text;
        return 1;
    }
    SYS_String GetFileName() override { return m_Name; }
    bool LineByLine() override { return false; }
    MacroSource* Clone(char const*) override { return nullptr; }

private:
    const SYS_String m_Text;
    const SYS_String m_Name;
    bool m_Given = false;
};

} // namespace

/// Parses a source; at its end the engine is reset, without source and tree.
class UI_MacroImpl::Check {
public:
    Check(UI_MacroImpl& engine, MacroSource* source) : Check(engine) {
        engine.SetSource(source);
        try {
            m_Parses = engine.Parse() && engine.GetLastErrorCode() == errMessage;
        } catch (const MacroException&) {
            // Its code, text and line are the processor's last error.
        }
    }
    Check(const Check&) = delete;
    Check& operator=(const Check&) = delete;
    ~Check() {
        m_Engine.m_CheckMode = false;
        try {
            m_Engine.Reset();
        } catch (...) {
            // A host's object may fail in the reset; the check has its result all the same.
        }
        m_Engine.m_Source = nullptr;
        if (ExecutionContext* top = m_Engine.m_ContextStack->Top()) {
            top->m_Source = nullptr;
            top->m_Position = m_Engine.m_Scanner->GetTokenLine();
        }
        m_Engine.m_Tree->Clear();
    }

    bool Parses() const { return m_Parses; }
    void Report(const SYS_String& text, MacroReport& report) const;

private:
    explicit Check(UI_MacroImpl& engine) : m_Entry(engine), m_Engine(engine) {
        engine.ClearLastError();
        engine.m_CheckMode = true;
    }

    void describeProblem(const TextLines& lines, MacroProblem& problem) const;
    static void describeOpenString(const TextLines& lines, MacroProblem& problem);

    EntryGuard m_Entry;
    UI_MacroImpl& m_Engine;
    bool m_Parses = false;
};

// --- What the tree says -----------------------------------------------------------------------

namespace {

/// Collects what the lines of a unit declare.
class Declarations {
public:
    Declarations(ParserTree::ScriptUnit& unit, const TextLines& lines, MacroReport& report)
        : m_Unit(unit), m_Lines(lines), m_Report(report) {}

    void Collect() {
        for (const ParserTree::Position* position : m_Unit.m_Lines) {
            for (Node* node = position ? position->firstNode : nullptr; node;
                 node = node->GetNextOnLine())
                note(*node);
        }
    }

private:
    int lineOf(const Node& node) const {
        return m_Lines.FromCounted(static_cast<int>(node.GetLine()));
    }

    void note(Node& node) {
        switch (node.GetKind()) {
        case Kind::Function:
            procedure(static_cast<ValueNode<ParserTree::Function>&>(node));
            break;
        case Kind::FunctionEnd:
            if (m_InProcedure)
                m_Report.procedures.back().endLine = lineOf(node);
            m_InProcedure = false;
            break;
        case Kind::VarDecl:
            name(node, static_cast<ValueNode<ParserTree::VarDecl>&>(node).name,
                 node.GetFirstChild() ? MacroNameInfo::Array : MacroNameInfo::Variable);
            break;
        case Kind::ArrRedecl:
            name(node, static_cast<ValueNode<ParserTree::ArrRedecl>&>(node).name,
                 MacroNameInfo::Array);
            break;
        case Kind::Const:
            for (const auto& item : static_cast<ConstNode&>(node).items)
                name(node, item.name, MacroNameInfo::Constant,
                     static_cast<ConstNode&>(node).access);
            break;
        default:
            break;
        }
    }

    void procedure(const ValueNode<ParserTree::Function>& declared) {
        MacroProcedureInfo info;
        info.name = declared.name;
        info.isFunction = declared.isFunction != 0;
        info.access = accessOf(declared.access);
        info.line = lineOf(declared);
        info.description = declared.description;
        for (const ParserTree::Argument& argument : declared.arguments)
            info.arguments.push_back({argument.name, argument.mode == 2, argument.isArray});
        m_Report.procedures.push_back(info);
        m_InProcedure = true;
    }

    // An array is declared again and again; the first time counts.
    void name(const Node& node, const SYS_String& name, MacroNameInfo::Kind kind, int access = 0) {
        if (m_InProcedure)
            return;
        const SYS_StrNoCase key(name);
        const auto same = [&](const MacroNameInfo& other) { return key == other.name; };
        if (std::any_of(m_Report.names.begin(), m_Report.names.end(), same))
            return;
        m_Report.names.push_back({name, kind, accessOf(access), lineOf(node)});
    }

    static MacroAccess accessOf(int access) {
        constexpr MacroAccess all[] = {MacroAccess::None, MacroAccess::Public,
                                       MacroAccess::PublicDefault, MacroAccess::Private};
        return all[access & 3];
    }

    ParserTree::ScriptUnit& m_Unit;
    const TextLines& m_Lines;
    MacroReport& m_Report;
    bool m_InProcedure = false; // procedures do not nest
};

void place(const TextLines& lines, std::size_t offset, MacroProblem& problem) {
    problem.textLine = lines.FromOffset(offset);
    problem.column = static_cast<int>(offset - lines.GetStart(problem.textLine));
    problem.sourceLine = SYS_String(lines.GetLine(problem.textLine));
}

} // namespace

void UI_MacroImpl::Check::Report(const SYS_String& text, MacroReport& report) const {
    const TextLines lines(text);
    report.parses = m_Parses;
    if (!m_Parses)
        describeProblem(lines, report.problem);
    if (ParserTree::ScriptUnit* unit = m_Engine.m_Tree->GetCurrentUnit()) {
        report.endsEarly = m_Parses && unit->m_RestDropped;
        if (report.endsEarly)
            describeOpenString(lines, report.problem);
        Declarations(*unit, lines, report).Collect();
    }
}

// An open block is found at the end of the text, but the error is where it begins.
void UI_MacroImpl::Check::describeProblem(const TextLines& lines, MacroProblem& problem) const {
    problem.code = m_Engine.GetLastErrorCode();
    problem.text = m_Engine.GetLastErrorText();
    problem.line = static_cast<int>(m_Engine.GetLastErrorLine());
    std::size_t offset = 0;
    if (m_Engine.m_FailingOffset >= 0)
        offset = static_cast<std::size_t>(m_Engine.m_FailingOffset);
    else
        offset = lines.FindToken(lines.FromCounted(problem.line), tokFor);
    place(lines, offset, problem);
}

void UI_MacroImpl::Check::describeOpenString(const TextLines& lines, MacroProblem& problem) {
    problem.code = 0;
    problem.text = "A string has no closing quote; nothing behind it is read";
    std::size_t offset = 0;
    problem.line = lines.FindOpenString(offset);
    place(lines, offset, problem);
}

// --- The operations ---------------------------------------------------------------------------

int UI_MacroImpl::CheckMacroFile(const SYS_String& path, int* errorLine) {
    if (!SCL::cPathProcessor::exists(path)) {
        ClearLastError();
        return 0;
    }
    const Check check(*this, new MacroSourceFile(path));
    if (errorLine && GetLastErrorCode() != errMessage)
        *errorLine = static_cast<int>(GetLastErrorLine());
    return check.Parses() ? 1 : 0;
}

MacroReport UI_MacroImpl::InspectMacroFile(const SYS_String& path) {
    const SCL_Pointer<MacroSourceFile> file(new MacroSourceFile(path));
    SYS_String text;
    if (file->GetNextLine(text, true))
        return InspectMacroText(text, path);
    ClearLastError();
    MacroException error(errCannotOpenFile, path, 0, nullptr);
    error.AddParam(path);
    MacroReport report;
    report.problem.code = errCannotOpenFile;
    report.problem.text = error.GetText();
    report.problem.textLine = -1;
    return report;
}

MacroReport UI_MacroImpl::InspectMacroText(const SYS_String& text, const SYS_String& name) {
    MacroReport report;
    Check(*this, new WholeText(text, name)).Report(text, report);
    return report;
}
