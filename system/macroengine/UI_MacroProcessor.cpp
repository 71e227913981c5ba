#include "UI_MacroProcessor.h"

#include <SCL_Assert.h>
#include <SCL_Path.h>
#include <SFM_Directory.h>
#include <SFM_FilePath.h>

#include <utility>
#include <vector>

#include "engine/ErrorTexts.h"
#include "engine/Frames.h"
#include "interpreter/RunGuard.h"
#include "language/Scanner.h"
#include "objects/UI_MacroErr.h"
#include "objects/UI_MacroWScript.h"
#include "recording/LogRecorder.h"
#include "recording/MacroLogFile.h"
#include "runtime/FileTable.h"

MacroSupport* MacroSupport::s_Processor = nullptr;
bool MacroSupport::s_bWaiting = false;
bool MacroSupport::s_HasStatementHook = false;
unsigned MacroSupport::s_OtherChanges = 0;

namespace {

template <class T> T& processWide() {
    static T& value = *new T;
    return value;
}

} // namespace

// --- FunctionTableItem -----------------------------------------------------------------------

SYS_String FunctionTableItem::GetName() const {
    SCL_ASSERT(m_Declaration, "FunctionTableItem::GetName: no declaration");
    return m_Declaration ? m_Declaration->name : SYS_String();
}

SYS_String FunctionTableItem::GetDescription() const {
    SCL_ASSERT(m_Declaration, "FunctionTableItem::GetDescription: no declaration");
    return m_Declaration ? m_Declaration->description : SYS_String();
}

bool FunctionTableItem::HasBody() const {
    SCL_ASSERT(m_Declaration, "FunctionTableItem::HasBody: no declaration");
    return m_Declaration && m_Declaration->GetFirstChild();
}

// --- Construction ----------------------------------------------------------------------------

MacroSupport::MacroSupport(bool nested)
    : MacroEval(nullptr), m_Scanner(std::make_unique<MacroScanner>()),
      m_ContextStack(std::make_unique<FrameStack>()), m_Files(std::make_unique<FileTable>()),
      m_RecordHook(this, &MacroSupport::OnRecord), m_Nested(nested) {
    RegisterMacroErrorTexts();
    getMap();
    RecordEvent().AddHead(m_RecordHook);
    functionsMap();
    if (nested) {
        if (s_Processor && s_Processor->GetPMap() != GetPMap())
            static_cast<SCC_Map<SYS_StrNoCase, UI_MacroVariant>&>(getMap()) = s_Processor->getMap();
        m_Parent = s_Processor;
        s_Processor = this;
    }
    m_WScript = std::make_unique<UI_MacroWScript>(*this);
    m_Err = std::make_unique<UI_MacroErr>(*this);
}

MacroSupport::~MacroSupport() {
    m_Err.reset();
    m_WScript.reset();
    if (m_Nested && s_Processor == this)
        s_Processor = m_Parent;
    m_RecordHook.Remove();
    m_ContextStack->Clear();
}

void MacroSupport::SetProcessor(MacroSupport* processor) {
    if (SCL_ASSERT(!processor || processor != &LogRecorder::Instance(),
                   "MacroSupport::SetProcessor: the log recorder runs no macros"))
        s_Processor = processor;
}

namespace {

/// The hooks in force. Those that a running hook replaces stay until it has returned.
struct HookStore {
    std::unique_ptr<MacroHostHooks> current = std::make_unique<MacroHostHooks>();
    std::vector<std::unique_ptr<MacroHostHooks>> replaced;
    int running = 0;
};

struct HookCall {
    HookCall() { ++processWide<HookStore>().running; }
    HookCall(const HookCall&) = delete;
    HookCall& operator=(const HookCall&) = delete;
    ~HookCall() {
        HookStore& store = processWide<HookStore>();
        if (--store.running == 0)
            store.replaced.clear();
    }
};

} // namespace

void MacroSupport::callStatementHook(long line) {
    const HookCall call;
    GetHostHooks().statement(line);
}

bool MacroSupport::CallIdleHook() {
    const HookCall call;
    const auto& idle = GetHostHooks().idle;
    if (idle)
        idle();
    return static_cast<bool>(idle);
}

void MacroSupport::SetHostHooks(const MacroHostHooks& hooks) {
    ++s_OtherChanges;
    HookStore& store = processWide<HookStore>();
    auto next = std::make_unique<MacroHostHooks>(hooks);
    std::swap(store.current, next);
    if (store.running > 0)
        store.replaced.push_back(std::move(next));
    s_HasStatementHook = static_cast<bool>(hooks.statement);
    SFM_FilePath::SetDefaultPathHook(hooks.defaultPath);
    SFM_FilePath::SetApplicationNameHook(hooks.applicationName);
    if (hooks.debugOutput)
        SetDebugOutput([](const char* text) { GetHostHooks().debugOutput(text); });
    else
        SetDebugOutput(nullptr);
}

const MacroHostHooks& MacroSupport::GetHostHooks() { return *processWide<HookStore>().current; }

void MacroSupport::SetLimits(const MacroLimits& limits) {
    processWide<MacroLimits>() = limits;
    SYS_String::SetMaxBytes(limits.stringBytes);
}

const MacroLimits& MacroSupport::GetLimits() { return processWide<MacroLimits>(); }

// --- Sources, outputs, modes -------------------------------------------------------------------

void MacroSupport::Reset() {
    m_Current = {nullptr, false};
    m_CurrentFunction = nullptr;
    m_Functions.RemoveAll();
    m_IsTreeOld = true;
    m_Files->Clear();
    m_ContextStack->Clear();
    m_Scanner->Reset();
    pushBottomFrame();
    PopContextUpToPosition(0);
    if (m_Source)
        m_Source->Reset();
    m_Options.explicitDeclarations = 0;
    SCC_MapIterator<SYS_StrNoCase, UI_MacroVariant> it(getMap());
    for (bool more = it.GetFirst(); more; more = it.Next()) {
        UI_MacroVariant* object = it.GetValue().getRefVal();
        if (object && object->IsMacroEval())
            static_cast<MacroEval*>(object)->OnParserReset(*this);
    }
}

void MacroSupport::pushBottomFrame() {
    auto* frame = new ExecutionContext;
    frame->m_Name = "Macro global code";
    m_ContextStack->Push(frame);
    const struct {
        const char* name;
        const UI_MacroVariant& value;
    } predefined[] = {{"nothing", Nothing()}, {"empty", Empty()}, {"null", Null()}};
    for (const auto& row : predefined) {
        UI_MacroVariantParam* variable = frame->m_Variables.Add(MacroName::Intern(row.name));
        *variable = row.value;
        variable->SetConstant(true);
    }
}

void MacroSupport::SetSource(MacroSource* source) {
    SCL_Pointer<MacroSource> keep(source); // the reset may let go of the last reference
    Reset();
    m_Source = keep;
    if (ExecutionContext* top = m_ContextStack->Top()) {
        top->m_Source = keep;
        top->m_Position = m_Scanner->GetTokenLine();
    }
}

void MacroSupport::SetOutput(MacroOutput* output) { m_Output = output; }

void MacroSupport::SetExecutionMode(ExecutionMode mode) {
    if (m_StopPending || !m_OldTrees.empty())
        return; // nothing lifts a run out of its stop
    if (m_Evaluating && mode != emStopped && mode != emFinished)
        return; // an evaluation is not paused or stepped, and runs in its own mode
    const ExecutionMode old = m_ExecutionMode;
    m_ExecutionMode = mode;
    if (mode != emPaused || old == mode)
        return;
    m_PausedAt = m_Current;
    if (const SCL_Pointer<MacroSource> keep = m_Source) {
        keep->TakeNoDebuggerNote();
        keep->OnPause();
    }
}

void MacroSupport::RequestStop() {
    m_ExecutionMode = emStopped;
    m_Current = {nullptr, false};
    m_StopPending = true;
    if (!IsBusy()) {
        const EntryGuard entry(*this); // its end is that of the stop
    }
}

void MacroSupport::finishStop() {
    if (!m_StopPending)
        return;
    try {
        Reset();
    } catch (...) {
        // A stop comes to its end, whatever an object of the host makes of the reset.
    }
    m_Source = nullptr;
    if (ExecutionContext* bottom = m_ContextStack->Top()) {
        bottom->m_Source = nullptr;
        bottom->m_Position = m_Scanner->GetTokenLine();
    }
    m_Output = nullptr;
    m_ExecutionMode = emStopped;
    m_ContextStack->Clear();
    m_StopPending = false;
}

bool MacroSupport::IsExecuting() const {
    return m_ExecutionMode != emStopped && m_ExecutionMode != emPaused &&
           m_ExecutionMode != emFinished;
}

int MacroSupport::InPlaybackMode() const { return m_PlaybackDepth; }

int MacroSupport::InRecordMode() const { return m_Output ? 1 : 0; }

void MacroSupport::RequestExit(int code) {
    m_ReturnCode = code;
    m_ResultCode = pbBlockDone;
}

int MacroSupport::GetParsePosition() const {
    if (m_Source && m_Source->LineByLine())
        return static_cast<int>(m_Source->GetPosition());
    // While a file is parsed in the middle of a run, the run's line belongs to another file.
    if (!m_Parsing && m_Current.node && m_Current.node->GetLine() >= 0)
        return static_cast<int>(m_Current.node->GetLine());
    return static_cast<int>(m_Scanner->GetTokenLine());
}

long MacroSupport::GetCurrentLine() const { return m_Current.node ? m_Current.node->GetLine() : 0; }

const SYS_String& MacroSupport::getDicStr(const SYS_String& text) {
    return m_Scanner->Intern(text);
}

// --- Work --------------------------------------------------------------------------------------

UI_MacroVariant MacroSupport::ExecuteMacro(const SYS_String& file, const SYS_String& function,
                                           UI_MacroVariant* args, int argc) {
    const EntryGuard entry(*this);
    if (m_PlaybackDepth > 0)
        OnError(errIllegalNesting, SYS_String());
    ClearLastError();
    if (!file.IsEmpty()) {
        SFM_FilePath path(file);
        path.SetDefault(SCL::PathAppend(SFM_Directory::GetCurDir(0), "*.mcr"));
        SetSource(new MacroSourceFile(SYS_String(path)));
    }
    if (!Parse())
        return UI_MacroVariant();
    if (function.IsEmpty()) {
        PlayBack(0, m_Source, nullptr);
        return UI_MacroVariant();
    }
    struct AfterCall {
        MacroSupport& processor;
        bool failed = true;
        ~AfterCall() { processor.endCall(failed); }
    } after{*this};
    if (!m_Functions.Lookup(SYS_StrNoCase(function))) {
        SYS_String message = "Function or Sub ";
        message += function;
        message += " not found";
        OnMacroError(message);
    }
    UI_MacroVariant result = Call(function, args, argc);
    after.failed = false;
    return result;
}

MacroPlaybackResult MacroSupport::PlayBack(int resume, MacroSource* source, char const* name) {
    return Run(resume, source, name);
}

void MacroSupport::RefreshFunctionTable() {
    if (m_IsTreeOld || !hasUnits())
        Parse();
}

int MacroSupport::EnableAutomation(const char* name, IDispatch* object) {
    const SYS_StrNoCase key(name);
    UI_MacroVariant* entry = getMap().Lookup(key);
    if (!entry)
        entry = functionsMap()->Lookup(key);
    UI_MacroVariant* value = entry ? entry->GetRVal() : nullptr;
    if (!value)
        return 0;
    ++s_OtherChanges;
    value->Clear();
    value->SetObjectVal(object, false);
    return 1;
}

// --- Errors ------------------------------------------------------------------------------------

long MacroSupport::errorLine() const {
    if (m_Parsing && m_Source && m_Source->LineByLine())
        return m_Source->GetPosition();
    if (!m_Parsing && m_Current.node && m_Current.node->GetLine() >= 0)
        return m_Current.node->GetLine();
    return m_Scanner->GetTokenLine();
}

void MacroSupport::raise(MacroException& error, int code, long line) {
    m_LastError.code = code;
    m_LastError.line = line;
    m_LastError.text = error.GetText();
    throw MacroException(error);
}

UI_MacroVariant MacroSupport::OnError(MacroERR_Code code, const SYS_String& param) {
    const long line = errorLine();
    const SYS_String path = m_Source ? m_Source->GetFileName() : SYS_String();
    if (code == errMessage) {
        MacroException error(param, path, static_cast<int>(line), m_Source);
        raise(error, code, line);
    }
    MacroException error(code, path, static_cast<int>(line), m_Source);
    error.AddParam(param);
    raise(error, code, line);
}

UI_MacroVariant MacroSupport::OnError(MacroERR_Code code) {
    const long line = errorLine();
    MacroException error(GetMacroErrorText(code), m_Source ? m_Source->GetFileName() : SYS_String(),
                         static_cast<int>(line), m_Source);
    raise(error, code, line);
}

UI_MacroVariant MacroSupport::OnError(const SYS_String& message) {
    const long line = errorLine();
    MacroException error(message, m_Source ? m_Source->GetFileName() : SYS_String(),
                         static_cast<int>(line), m_Source);
    raise(error, 0, line);
}

void MacroSupport::ClearLastError() {
    m_LastError.code = errMessage;
    m_LastError.line = 0;
    m_LastError.text.Clear();
    m_FailingOffset = -1;
}

// --- Frames ------------------------------------------------------------------------------------

int MacroSupport::GetFramesCount() const {
    int count = 0;
    for (const MacroSupport* p = this; p; p = p->m_Parent)
        count += p->m_ContextStack->GetCount();
    return count;
}

ExecutionContext* MacroSupport::GetContext(int frame) const {
    const MacroSupport* p = this;
    while (frame >= p->m_ContextStack->GetCount()) {
        frame -= p->m_ContextStack->GetCount();
        p = p->m_Parent;
        SCL_ASSERT(p, "MacroSupport::GetContext: no such frame");
        if (!p)
            return nullptr;
    }
    return p->m_ContextStack->At(frame);
}

int MacroSupport::PopContextUpToPosition(int position) {
    ExecutionContext* top = m_ContextStack->Top();
    while (top && top->m_TopBlock) {
        if (top->m_TopBlock->position < position)
            return 1;
        top->PopBlock();
    }
    return 0;
}

int MacroSupport::BreakLoop(int kind) {
    ExecutionContext* top = m_ContextStack->Top();
    SCL_ASSERT(top, "MacroSupport::BreakLoop: no frame");
    for (ContextBlock* block = top ? top->m_TopBlock : nullptr; block; block = block->below)
        if (block->kind == kind) {
            block->active = 0;
            return 1;
        }
    return 0;
}

bool MacroSupport::With(const UI_MacroVariant& object, ParserTree::Node* with, bool isDialog) {
    ExecutionContext* top = m_ContextStack->Top();
    if (!top)
        return false;
    auto* block = new ContextBlock;
    block->kind = ContextBlock::kWith;
    block->active = isDialog;
    block->line = with ? with->GetPosition() : nullptr;
    block->node = with;
    block->object = object;
    top->PushBlock(block);
    return true;
}

bool MacroSupport::WithEnd() {
    ExecutionContext* top = m_ContextStack->Top();
    if (!top || !top->m_TopBlock || top->m_TopBlock->kind != ContextBlock::kWith)
        return false;
    top->PopBlock();
    return true;
}

// --- Value cells -------------------------------------------------------------------------------

ParserTree::Cell* MacroSupport::findResult(ParserTree::Node* node) const {
    auto* slots = node ? node->GetResult() : nullptr;
    ParserTree::Cell* cell = slots ? slots->GetTop() : nullptr;
    return cell && cell->frame == m_ContextStack->Top() ? cell : nullptr;
}

ParserTree::Cell* MacroSupport::getResultVal(ParserTree::Node* node) {
    ExecutionContext* top = m_ContextStack->Top();
    auto* slots = node ? node->GetResult() : nullptr;
    if (!top || !slots)
        return nullptr;
    ParserTree::Cell* cell = slots->GetTop();
    return cell && cell->frame == top ? cell : top->MakeCell(*slots);
}

void MacroSupport::releaseResult(ParserTree::Node* node) {
    if (ParserTree::Cell* cell = findResult(node))
        ExecutionContext::FreeCell(cell);
}
