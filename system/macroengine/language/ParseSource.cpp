// How a processor parses its source: one parser run for each text, or one over all the lines of
// a source that gives them singly.

#include <SCL_Path.h>
#include <UI_MacroProcessor.h>

#include "engine/Frames.h"
#include "interpreter/RunGuard.h"
#include "interpreter/WithinMemory.h"
#include "language/ParseState.h"
#include "language/Scanner.h"
#include "language/Tokens.h"
#include "language/TreeBuilder.h"

bool MacroParser::Parse() {
    if (!m_Source)
        return false;
    const EntryGuard entry(*this);
    m_Tree->Clear();
    m_IsTreeOld = false;
    if (!IsInEvaluation())
        m_Functions.RemoveAll();
    const SYS_String name = m_Source->GetFileName();
    ParserTree::ScriptUnit* unit =
        m_Tree->GetUnit(name.IsEmpty() ? name : SCL::PathNormalize(name, true));
    unit->source = m_Source;
    m_Tree->SetCurrentUnit(unit);
    bool done = false;
    WithinMemory(*this, [&] { done = ParseAll(); });
    if (!done || m_StopPending)
        return false;
    m_Current = {&unit->m_Root, false};
    return true;
}

void MacroParser::refuseSource() {
    const SYS_String path = m_Source->GetFileName();
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
    // A parse that is left by an exception, of whatever kind, has finished the run to be.
    struct Mode {
        MacroParser& processor;
        bool settled;
        ~Mode() {
            if (!settled && processor.m_ExecutionMode != emStopped)
                processor.m_ExecutionMode = emFinished;
        }
    } mode{*this, underRun};
    int lastLine = 0;
    bool isComplete = false;
    {
        ParseState outer(*m_Tree, *m_Scanner, !underRun);
        ParsingFlag parsing(m_Parsing);
        m_Tree->m_Parent = &unit->m_Root;
        m_Tree->m_Function = nullptr;
        m_Options.explicitDeclarations = 0;
        source->SetPosition(0);
        source->SetNextPosition(0);
        try {
            SYS_String text;
            while (!m_StopPending && ParseLine(text)) {
            }
        } catch (const MacroException&) {
            source->SetNextPosition(m_Scanner->GetCurrentLine());
            throw;
        }
        lastLine = m_Scanner->GetTokenLine();
        isComplete = !m_StopPending && m_Tree->m_Parent == &unit->m_Root;
        if (isComplete) {
            m_Tree->FinishParse();
            unit->m_RestDropped = m_Scanner->GetState().stringIsOpen;
            source->SetPosition(0);
            source->SetNextPosition(-1);
        } else if (!m_StopPending) {
            noteOpenBlock();
        }
    }
    mode.settled = true;
    if (underRun)
        return isComplete; // if not, the caller drops this unit alone
    m_Scanner->GetState().tokenLine = lastLine;
    if (isComplete)
        return true;
    if (!m_CheckMode) {
        m_Tree->Clear();
        if (!IsInEvaluation())
            m_Functions.RemoveAll();
    }
    m_ExecutionMode = emStopped;
    return false;
}

void MacroParser::noteOpenBlock() {
    const ParserTree::Node& block = *m_Tree->m_Parent;
    const MacroERR_Code code = TreeBuilder::GetOpenBlockCode(block);
    const long line = block.GetLine();
    MacroException error(code, m_Source->GetFileName(), static_cast<int>(line), m_Source);
    error.AddParam(SYS_String());
    m_LastError.code = code;
    m_LastError.line = line;
    m_LastError.text = error.GetText();
}

bool MacroParser::ParseLine(SYS_String& text) {
    if (m_Scanner->GetState().restDropped)
        return false;
    const SCL_Pointer<MacroSource> keep(m_Source);
    if (!keep->GetNextLine(text, true)) {
        if (auto* file = dynamic_cast<MacroSourceFile*>(keep.Get()); file && file->HasFailed())
            refuseSource();
        return false;
    }
    ParseText(text, m_Source->LineByLine());
    return true;
}

void MacroParser::ParseText(SYS_String& text, bool continues) {
    MacroScanner::State& scan = m_Scanner->GetState();
    scan.continuesText = continues;
    scan.movesSource = !continues && m_Source->LineByLine();
    scan.restDropped = scan.stringIsOpen = false;
    const char* cursor = text.c_str();
    m_Scanner->SetText(&cursor);
    scan.text = &text;
    scan.prefixLeft = scan.expressionForm ? 3 : 0;
    m_Builder->BeginText();
    ParsingFlag parsing(m_Parsing);
    try {
        if (ParseMacroText(*m_Builder) != 0)
            OnError(SYS_String("YYABORT"));
    } catch (const MacroException& error) {
        if (m_StopPending) { // what failed is a text that a stop has cut short
            scan.cursor = nullptr;
            ClearLastError();
            return;
        }
        m_FailingOffset = static_cast<long>(scan.tokenStart - scan.bufferStart);
        SYS_String message = error.GetText();
        message << "\n";
        if (!error.GetFilePath().IsEmpty())
            message << "File " << error.GetFilePath() << " ";
        message << "Line " << (error.GetPosition() + 1) << ": "
                << m_Scanner->GetFailingLine(continues);
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
        SYS_String next; // the line before is still needed if there is none
        if (scan.lastToken != tokNewLine && scan.lastToken != 0) {
            scan.lineOffset = 0;
            ++scan.currentLine;
            token = tokNewLine;
        } else if (!m_StopPending && m_Source->GetNextLine(next, true) && !m_StopPending) {
            *scan.text = next;
            *scan.cursor = scan.text->c_str();
            m_Scanner->BeginLine();
            m_Builder->BeginText();
            token = m_Scanner->ScanToken();
        } else {
            scan.continuesText = false;
            scan.restDropped = true;
        }
    }
    m_Scanner->SetLastToken(token);
    if (token == tokMisplacedDot) {
        OnSyntaxError(GetParsePosition());
        token = tokLeadingDot;
        m_Scanner->GetState().lastToken = token;
    }
    if (token < 0)
        scan.restDropped = scan.stringIsOpen = true;
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
    const MacroName* const interned = MacroName::Intern(name.View());
    if (m_Tree->m_Function) {
        m_Tree->m_Function->locals.Install(key, {isConstant});
        if (m_Tree->m_Updating && !isConstant)
            for (ExecutionContext* f = m_ContextStack->Top(); f; f = f->m_Below)
                if (f->m_Function == m_Tree->m_Function)
                    f->m_Variables.FindOrMake(interned);
        return;
    }
    m_Tree->m_GlobalNames.Install(key, {isConstant});
    if (isConstant)
        return;
    m_Tree->GetCurrentUnit()->m_Variables.push_back(name);
    // During an edit of a paused macro the top frame may be a procedure's.
    ExecutionContext* module =
        m_Tree->m_Updating ? m_ContextStack->Bottom() : m_ContextStack->Top();
    if (module)
        module->m_Variables.FindOrMake(interned);
}
