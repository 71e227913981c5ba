// How a processor parses its source: one parser run for each text, or one over all the lines of
// a source that gives them singly.

#include <UI_MacroProcessor.h>

#include <utility>

#include "engine/Frames.h"
#include "language/Scanner.h"
#include "language/Tokens.h"
#include "language/TreeBuilder.h"

namespace {

/// Parsing turns names of lines and errors to the scanner; nested parses end inside out.
class ParsingFlag {
public:
    explicit ParsingFlag(bool& flag) : m_Flag(flag), m_Old(std::exchange(flag, true)) {}
    ~ParsingFlag() { m_Flag = m_Old; }
    ParsingFlag(const ParsingFlag&) = delete;
    ParsingFlag& operator=(const ParsingFlag&) = delete;

private:
    bool& m_Flag;
    bool m_Old;
};

} // namespace

/// Where a parse stands in the tree and the text, put aside while another unit is parsed.
class ParseState {
public:
    ParseState(ParserTree& tree, MacroScanner& scanner, bool keepsForm)
        : m_Tree(tree), m_Scanner(scanner), m_Parent(tree.m_Parent), m_Function(tree.m_Function) {
        m_Scan.expressionForm = keepsForm && scanner.GetState().expressionForm;
        m_Scanner.SwapState(m_Scan);
    }
    ~ParseState() {
        m_Tree.m_Parent = m_Parent;
        m_Tree.m_Function = m_Function;
        m_Scanner.SwapState(m_Scan);
    }
    ParseState(const ParseState&) = delete;
    ParseState& operator=(const ParseState&) = delete;

private:
    ParserTree& m_Tree;
    MacroScanner& m_Scanner;
    ParserTree::Node* m_Parent;
    ParserTree::NodeImpl<ParserTree::Function, false>* m_Function;
    MacroScanner::State m_Scan;
};

bool MacroParser::Parse() {
    if (!m_Source)
        return false;
    m_Tree->Clear();
    if (auto* file = dynamic_cast<MacroSourceFile*>(m_Source.Get()); file && !file->IsReadable())
        refuseSource();
    if (!IsInEvaluation())
        m_Functions.RemoveAll();
    ParserTree::ScriptUnit* unit = m_Tree->GetUnit(m_Source->GetFileName());
    unit->source = m_Source;
    m_Tree->SetCurrentUnit(unit);
    if (!ParseAll())
        return false;
    m_Current = {&unit->m_Root, false};
    return true;
}

void MacroParser::refuseSource() {
    const SYS_String path = m_Source->GetFileName();
    m_ExecutionMode = emFinished;
    MacroException error(errCannotOpenFile, path, 0, m_Source);
    error.AddParam(path);
    raise(error, errCannotOpenFile, 0);
}

bool MacroParser::ParseAll() {
    if (!m_Source)
        return false;
    const bool underRun = m_Current.node != nullptr;
    ParserTree::ScriptUnit* unit = m_Tree->GetCurrentUnit();
    SCL_Pointer<MacroSource> source = m_Source;
    try {
        ParseState outer(*m_Tree, *m_Scanner, !underRun);
        ParsingFlag parsing(m_Parsing);
        m_Tree->m_Parent = &unit->m_Root;
        m_Tree->m_Function = nullptr;
        m_Options.explicitDeclarations = 0;
        source->SetPosition(0);
        source->SetNextPosition(0);
        try {
            SYS_String text;
            while (ParseLine(text)) {
            }
        } catch (const MacroException&) {
            source->SetNextPosition(m_Scanner->GetTokenLine());
            throw;
        }
        if (m_Tree->m_Parent == &unit->m_Root) {
            m_Tree->FinishParse();
            source->SetPosition(0);
            source->SetNextPosition(-1);
            return true;
        }
        noteOpenBlock();
    } catch (const MacroException&) {
        if (!underRun)
            m_ExecutionMode = emFinished;
        throw;
    }
    // Under a run the caller drops this unit alone and the macro that runs stays.
    if (!underRun) {
        m_Tree->Clear();
        m_ExecutionMode = emStopped;
    }
    return false;
}

void MacroParser::noteOpenBlock() {
    const ParserTree::Node& block = *m_Tree->m_Parent;
    const MacroERR_Code code = TreeBuilder::GetOpenBlockCode(block);
    const long line = block.GetLine();
    MacroException error(code, m_Source->GetFileName(), static_cast<int>(line), m_Source);
    error.AddParam(SYS_String());
    m_LastErrorCode = code;
    m_LastErrorLine = line;
    m_LastErrorText = error.GetText();
}

bool MacroParser::ParseLine(SYS_String& text) {
    if (m_Scanner->GetState().restDropped || !m_Source->GetNextLine(text, true))
        return false;
    ParseText(text, m_Source->LineByLine());
    return true;
}

void MacroParser::ParseText(SYS_String& text, bool continues) {
    MacroScanner::State& scan = m_Scanner->GetState();
    scan.continuesText = continues;
    scan.movesSource = !continues && m_Source->LineByLine();
    scan.restDropped = false;
    const char* cursor = text.c_str();
    m_Scanner->SetText(&cursor);
    scan.text = &text;
    scan.prefixLeft = scan.expressionForm ? 3 : 0;
    ParsingFlag parsing(m_Parsing);
    try {
        if (ParseMacroText(*m_Builder) != 0)
            OnError(SYS_String("YYABORT"));
    } catch (const MacroException& error) {
        SYS_String message = error.GetText();
        message << "\n";
        if (!error.GetFilePath().IsEmpty())
            message << "File " << error.GetFilePath() << " ";
        message << "Line " << (error.GetPosition() + 1) << ": " << m_Scanner->GetFailingLine();
        scan.cursor = nullptr;
        throw MacroException(message, error.GetFilePath(), error.GetPosition(), error.GetSource());
    }
    scan.cursor = nullptr;
}

int MacroParser::NextToken() {
    MacroScanner::State& scan = m_Scanner->GetState();
    if (scan.movesSource && scan.lastToken == tokNewLine)
        m_Source->SetPosition(m_Source->GetPosition() + 1);
    int token = scan.prefixLeft > 0 ? prefixToken() : m_Scanner->ScanToken();
    while (token == tokEnd && scan.continuesText) {
        if (scan.lastToken != tokNewLine && scan.lastToken != 0) {
            scan.lineOffset = 0;
            ++scan.currentLine;
            token = tokNewLine;
        } else if (m_Source->GetNextLine(*scan.text, true)) {
            *scan.cursor = scan.text->c_str();
            m_Scanner->BeginLine();
            token = m_Scanner->ScanToken();
        } else {
            scan.continuesText = false;
            scan.restDropped = true;
        }
    }
    m_Scanner->SetLastToken(token);
    if (token == tokMisplacedDot)
        OnSyntaxError(GetParsePosition());
    if (token < 0)
        scan.restDropped = true;
    return token;
}

// An expression is parsed as the value of an assignment to a name that nobody can write.
int MacroParser::prefixToken() {
    MacroScanner::State& scan = m_Scanner->GetState();
    --scan.prefixLeft;
    if (scan.prefixLeft == 2)
        return tokLet;
    if (scan.prefixLeft == 0)
        return tokEquals;
    MacroToken name;
    name.entry = &m_Scanner->GetDictionary().FindOrInsert({});
    m_Scanner->SetValue(name);
    return tokName;
}

void MacroParser::OnSyntaxError(int) { OnError(m_Builder->GetSyntaxErrorCode(), SYS_String()); }

// --- Declarations ------------------------------------------------------------------------------

bool MacroParser::CheckName(const SYS_String& name) {
    const SYS_StrNoCase key(name);
    bool inUse = getMap().Lookup(key) != nullptr;
    if (!inUse && m_Tree->m_Function)
        inUse = m_Tree->m_Function->locals.Lookup(key) != nullptr;
    else if (!inUse)
        inUse = m_Functions.Lookup(key) != nullptr || m_Tree->m_GlobalNames.Lookup(key) != nullptr;
    if (!inUse)
        return true;
    OnError(errIdentifierInUse, SYS_String());
    return false;
}

void MacroParser::Declare(const SYS_String& name, bool isConstant) {
    if (!CheckName(name))
        return;
    const SYS_StrNoCase key(name);
    if (m_Tree->m_Function) {
        m_Tree->m_Function->locals.Install(key, {isConstant});
        return;
    }
    m_Tree->m_GlobalNames.Install(key, {isConstant});
    if (isConstant)
        return;
    m_Tree->GetCurrentUnit()->m_Variables.push_back(name);
    // During an edit of a paused macro the top frame may be a procedure's.
    ExecutionContext* module = m_Tree->m_Anchor ? m_ContextStack->Bottom() : m_ContextStack->Top();
    if (module)
        module->m_Variables.FindOrMake(MacroName::Intern(name.View()));
}
