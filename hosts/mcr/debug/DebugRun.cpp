#include "DebugRun.h"

#include <HostSource.h>

#include "ErrorText.h"
#include "Interrupt.h"

#include <utility>

namespace {

constexpr const char* kModuleLevel = "module level";

// Only the first statement of a line stops at its breakpoint.
bool beginsLine(const ParserTree::Node* node) {
    const ParserTree::Position* position = node ? node->GetPosition() : nullptr;
    const ParserTree::Node* first = position ? position->firstNode : nullptr;
    while (first && !first->IsStatementNode())
        first = first->GetNextOnLine();
    return first == node;
}

} // namespace

std::string FrameInfo::Describe() const {
    const std::string name = procedure.empty() ? kModuleLevel : procedure;
    return file ? name + " at " + file->At(line) : name;
}

DebugRun::DebugRun(Session& session, ScriptFiles& files, Breakpoints& breakpoints,
                   std::function<void(const Halt&)> onHalt)
    : m_Session(session), m_Files(files), m_Breakpoints(breakpoints), m_OnHalt(std::move(onHalt)),
      m_OldHooks(MacroSupport::GetHostHooks()) {
    MacroHostHooks hooks = m_OldHooks;
    hooks.idle = [this] { onIdle(); };
    hooks.statement = [this](long) {
        if (m_Evaluating && Interrupt::IsAsked())
            throw MacroStopException();
    };
    MacroSupport::SetHostHooks(hooks);
}

DebugRun::~DebugRun() { MacroSupport::SetHostHooks(m_OldHooks); }

MacroParser& DebugRun::processor() {
    return static_cast<MacroParser&>(*MacroSupport::GetProcessor());
}

// --- Running -----------------------------------------------------------------------------------

void DebugRun::Prepare(ScriptFile& file) {
    processor().SetSource(SCL_Pointer<MacroSource>(new DebugSource(file, *this)));
}

DebugRun::Outcome DebugRun::Run(ScriptFile& file, bool stopAtFirst) {
    Outcome outcome;
    m_Stopped = false;
    m_Passed = nullptr;
    m_Pending.clear();
    m_Refused = false;
    m_Halt = Halt();
    m_Stepping.Start(stopAtFirst ? Stepping::Step : Stepping::Continue, Place(), 1);
    Interrupt::Clear();
    const SCL_Pointer<MacroSource> source(new DebugSource(file, *this));
    try {
        m_Session.GetMacro().Execute(source, SYS_String(), nullptr, 0);
        outcome.code = UI_Macro::GetReturnValue();
        const MacroSupport& engine = processor();
        const bool isParsed = engine.GetExecutionMode() != MacroSupport::emStopped;
        if (!m_Stopped && !isParsed) // a block that is never closed
            outcome.error = file.At(engine.GetLastErrorLine()) + ": " +
                            ShortErrorText(engine.GetLastErrorText());
    } catch (const MacroException& error) {
        const auto* failed = dynamic_cast<DebugSource*>(error.GetSource());
        outcome.error = (failed ? failed->GetFile() : file).At(error.GetPosition()) + ": " +
                        ShortErrorText(error.GetText());
    }
    m_Halted = false;
    if (m_Stopped)
        Prepare(file); // the engine has let go of everything
    outcome.wasStopped = m_Stopped;
    const bool failed = m_Stopped ? m_Halt.reason == Halt::AfterError : !outcome.error.empty();
    if (failed)
        outcome.code = ExitMacroError;
    else if (m_Stopped)
        outcome.code = ExitDone;
    return outcome;
}

void DebugRun::GoOn(Stepping::Kind kind, int count, int frame) {
    MacroParser& engine = processor();
    Place here;
    if (const auto* source = dynamic_cast<DebugSource*>(engine.GetSource()))
        here = placeAt(source->GetFile(), engine.GetCurrentLine());
    if (frame > 0) {
        here.frames -= frame;
        here.scripts = 0;
    }
    m_Passed = engine.Current().node;
    m_Stepping.Start(kind, here, count);
    m_Halt = Halt();
    m_Halted = false;
    Interrupt::Clear();
    engine.SetExecutionMode(MacroSupport::emRun);
}

void DebugRun::Stop() {
    m_Stopped = true;
    m_Halted = false;
    m_Session.GetMacro().Stop();
}

// --- Where it stands ---------------------------------------------------------------------------

int DebugRun::GetFrameCount() { return m_Frames.GetFramesCount(); }

FrameInfo DebugRun::GetFrame(int frame) {
    const auto* source = dynamic_cast<DebugSource*>(m_Frames.GetSource(frame));
    const bool isModule = frame == GetFrameCount() - 1;
    ScriptFile* file = source ? &source->GetFile() : nullptr;
    return {file, shownLine(file, m_Frames.GetPosition(frame)),
            isModule ? std::string() : m_Frames.GetContext(frame).c_str()};
}

Place DebugRun::placeAt(const ScriptFile& file, long line) const {
    MacroParser& engine = processor();
    const ParserTree::Node* node = engine.Current().node;
    return {&file, line, engine.GetFramesCount(), Place::CountScripts(node), node};
}

bool DebugRun::CanFinish(int frame) const {
    MacroParser& engine = processor();
    return engine.GetFramesCount() > frame + 1 ||
           (frame == 0 && Place::CountScripts(engine.Current().node) > 0);
}

// The engine counts lines as they were before the changes that it does not know of.
long DebugRun::shownLine(const ScriptFile* file, long line) const {
    if (file != m_PendingFile)
        return line;
    for (const MacroParser::LineChange& change : m_Pending) {
        if (change.kind == 0 && change.line <= line)
            ++line;
        else if (change.kind == 1 && change.line < line)
            --line;
    }
    return line;
}

// --- Changes and values ------------------------------------------------------------------------

DebugRun::Edited DebugRun::TakeOver(const ScriptFile& file,
                                    const SCL_Vector<MacroParser::LineChange>& changes,
                                    std::string& error) {
    m_Pending.insert(m_Pending.end(), changes.begin(), changes.end());
    m_PendingFile = &file;
    if (file.outline.IsBroken()) {
        error = file.At(file.outline.GetErrorLine()) + ": " + file.outline.GetError();
        return Edited::Broken;
    }
    const SCL_Vector<MacroParser::LineChange> all = std::exchange(m_Pending, {});
    m_Refused = false;
    try {
        if (processor().Reparse(all))
            return Edited::Done;
    } catch (const MacroException& failure) {
        m_Refused = true;
        error = ShortErrorText(failure.GetText());
        return Edited::Broken;
    }
    Stop();
    return Edited::Ended;
}

// In parentheses a text can be nothing but an expression: `a = 1` compares.
DebugRun::Evaluated DebugRun::Evaluate(const std::string& expression, bool pure) {
    return evaluate("(" + expression + ")", pure);
}

DebugRun::Evaluated DebugRun::Execute(const std::string& statement) {
    return evaluate(statement, false);
}

DebugRun::Evaluated DebugRun::evaluate(const std::string& text, bool pure) {
    constexpr MacroERR_Code kRefused = static_cast<MacroERR_Code>(46);
    Evaluated result;
    MacroSource* current = processor().GetSource(); // gives its folder to the evaluation
    const SYS_String name = current ? current->GetFileName() : SYS_String("<expression>");
    const SCL_Pointer<MacroSource> source(
        new TextSource(SYS_String(text), name, m_Session.GetTrace()));
    Interrupt::Clear();
    m_Evaluating = true;
    try {
        result.value = m_Frames.Eval(source, !pure);
    } catch (const MacroException& error) {
        result.error = ShortErrorText(error.GetText());
        if (pure && processor().GetLastErrorCode() == kRefused)
            result.error = "This calls something that may change the macro's state";
    } catch (const MacroStopException&) {
        result.error = "Interrupted";
    } catch (const std::exception& error) {
        result.error = error.what();
    }
    m_Evaluating = false;
    Interrupt::Clear();
    return result;
}

// --- What the engine asks ----------------------------------------------------------------------

// Called for every statement, so that a run without breakpoints must get through it quickly.
bool DebugRun::OnStatement(const ScriptFile& file, long line) {
    if (m_Halted)
        return false; // the engine tells of a failed statement that has halted already
    const ParserTree::Node* passed = std::exchange(m_Passed, nullptr);
    const bool mayHalt =
        m_Stepping.IsActive() || Interrupt::IsAsked() || m_Breakpoints.Find(file, line);
    if (!mayHalt)
        return false;
    const Place here = placeAt(file, line);
    return here.node != passed && haltsAt(here);
}

bool DebugRun::haltsAt(const Place& here) {
    const bool stepEnds = m_Stepping.EndsAt(here);
    const Breakpoint* breakpoint = m_Breakpoints.Find(*here.file, here.line);
    if (breakpoint && beginsLine(here.node))
        return halt({Halt::AtBreakpoint, breakpoint->number, ""});
    if (Interrupt::IsAsked())
        return halt({Halt::Interrupted, 0, ""});
    return stepEnds && halt({Halt::AfterStep, 0, ""});
}

bool DebugRun::halt(Halt halt) {
    m_Halt = std::move(halt);
    m_Halted = true;
    processor().SetExecutionMode(MacroSupport::emPaused);
    return true;
}

bool DebugRun::OnFailure(MacroException& error) {
    return halt({Halt::AfterError, 0, ShortErrorText(error.GetText())});
}

ScriptFile* DebugRun::OnOpen(const std::string& path) { return m_Files.Open(path); }

void DebugRun::onIdle() {
    if (m_Halted)
        m_OnHalt(m_Halt);
}
