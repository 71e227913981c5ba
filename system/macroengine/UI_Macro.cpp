#include "UI_Macro.h"

#include <Platform.h>
#include <SCL_Assert.h>
#include <SCL_Path.h>
#include <SFM_FilePath.h>
#include <SYS_Exception.h>
#include <SYS_Resources.h>
#include <UI_MacroImpl.h>

#include <utility>

#include "engine/ErrorTexts.h"
#include "engine/Frames.h"
#include "interpreter/ContextSwaper.h"
#include "interpreter/RunGuard.h"
#include "language/EditorTokenizer.h"
#include "recording/LogRecorder.h"

namespace {

constexpr int kNoTemporaryFile = 45136;

int s_Started = 0;

} // namespace

void MacroEngineDllInitialize() {
    if (s_Started++ == 0)
        RegisterMacroErrorTexts();
    LogRecorder::Instance();
}

void MacroEngineDllTerminate() {
    SCL_ASSERT(s_Started > 0, "MacroEngineDllTerminate: the engine was not started");
    if (s_Started > 0)
        --s_Started;
}

const void* GetLocalResourceHandle_MacroEngine() {
    return s_Started > 0 ? MacroErrorTexts() : nullptr;
}

const void* GetOrigModuleState_MacroEngine() { return nullptr; }

// --- UI_MacroImpl ------------------------------------------------------------------------------

UI_MacroImpl::UI_MacroImpl(bool nested)
    : MacroParser(nested), m_Tokenizer(std::make_unique<EditorTokenizer>()) {}

UI_MacroImpl::~UI_MacroImpl() = default;

int UI_MacroImpl::InRecordMode() const {
    MacroSupport* parent = GetParentProcessor();
    return parent && parent != this ? parent->InRecordMode() : MacroParser::InRecordMode();
}

int UI_MacroImpl::InPlaybackMode() const {
    MacroSupport* parent = GetParentProcessor();
    return parent && parent != this ? parent->InPlaybackMode() : MacroParser::InPlaybackMode();
}

UI_MacroVariant UI_MacroImpl::ExecuteMacro(const SYS_String& file, const SYS_String& function,
                                           UI_MacroVariant* args, int argc) {
    SYS_String path = file;
    MacroSupport* parent = GetParentProcessor();
    if (!file.IsEmpty() && parent && parent->GetSource() &&
        SCL::cPathProcessor::is_relative(file)) {
        const SYS_String parentFile = parent->GetSource()->GetFileName();
        if (!parentFile.IsEmpty()) {
            SFM_FilePath resolved(parentFile);
            resolved.SetFileNameExt(file);
            path = SYS_String(resolved);
        }
    }
    return MacroParser::ExecuteMacro(path, function, args, argc);
}

// --- Construction ------------------------------------------------------------------------------

UI_Macro::UI_Macro(bool nested) : m_Nested(nested) {}

UI_Macro::UI_Macro(UI_Macro const& other) : UI_Tokenizer(other), m_Nested(other.m_Nested) {}

UI_Macro& UI_Macro::operator=(UI_Macro const& other) {
    UI_Tokenizer::operator=(other);
    m_Nested = other.m_Nested;
    return *this;
}

UI_Macro::~UI_Macro() {
    if (!m_Impl)
        return;
    UI_MacroImpl* engine = std::exchange(m_Impl, nullptr);
    const bool running = engine->IsBusy();
    SCL_ASSERT(!running, "UI_Macro: destroyed while its macro runs");
    if (!running) {
        delete engine;
        return;
    }
    engine->m_Abandoned = true; // deleted by the outermost entry
    engine->RequestStop();
}

UI_MacroImpl& UI_Macro::impl() {
    if (!m_Impl) {
        LogRecorder::Instance(); // comes before every processor
        m_Impl = new UI_MacroImpl(m_Nested);
    }
    return *m_Impl;
}

// --- Running -----------------------------------------------------------------------------------

namespace {

/// A running macro runs others through a `UI_Macro` of their own.
void refuseReentry(MacroSupport& engine) {
    if (engine.IsBusy())
        engine.OnError(errIllegalNesting, SYS_String());
}

/// What the parent goes on with after a run inside it.
void handModeBack(MacroSupport& parent, MacroSupport::ExecutionMode earlier,
                  MacroSupport::ExecutionMode mode) {
    if (parent.GetExecutionMode() == MacroSupport::emStopped)
        return;
    switch (mode) {
    case MacroSupport::emRun:
        parent.SetExecutionMode(earlier == MacroSupport::emStopped ||
                                        earlier == MacroSupport::emStepOver
                                    ? earlier
                                    : MacroSupport::emRun);
        break;
    case MacroSupport::emStopped:
        parent.SetExecutionMode(MacroSupport::emStopped);
        break;
    case MacroSupport::emStepOut:
    case MacroSupport::emStepOver:
        parent.SetExecutionMode(MacroSupport::emStepOver);
        break;
    case MacroSupport::emPaused:
    case MacroSupport::emStepInto:
    case MacroSupport::emFinished:
    case MacroSupport::emEval:
    case MacroSupport::emEvalPure:
        break;
    }
}

/// Runs in an engine that may lose its owner meanwhile.
UI_MacroVariant run(UI_MacroImpl& engine, SYS_String const& file, SYS_String const& function,
                    UI_MacroVariant* args, int argCount) {
    const EntryGuard entry(engine);
    SCL_ASSERT(&engine == MacroSupport::GetProcessor(),
               "UI_Macro: this engine is not the current processor");
    UI_MacroVariant result;
    if (&engine != MacroSupport::GetProcessor())
        return result;
    MacroSupport* parent = engine.GetParentProcessor();
    const auto earlier = parent ? parent->GetExecutionMode() : MacroSupport::emRun;
    if (parent && earlier == MacroSupport::emStepInto)
        engine.SetExecutionMode(function.IsEmpty() ? MacroSupport::emStepOver
                                                   : MacroSupport::emStepInto);
    else
        engine.SetExecutionMode(MacroSupport::emRun);

    try {
        result = engine.ExecuteMacro(file, function, args, argCount);
    } catch (const MacroStopException&) {
        SCL_ASSERT(engine.GetExecutionMode() == MacroSupport::emStopped,
                   "Unexpected Macro execution mode. Ivar Solde");
        result.Clear();
    }
    MacroSupport* now = engine.GetParentProcessor(); // it may have ended meanwhile
    if (now && now == parent)
        handModeBack(*now, earlier, engine.GetExecutionMode());
    return result;
}

} // namespace

UI_MacroVariant UI_Macro::ExecuteMacro(SYS_String const& file, SYS_String const& function,
                                       UI_MacroVariant* args, int argCount) {
    UI_MacroImpl& engine = impl();
    refuseReentry(engine);
    return run(engine, file, function, args, argCount);
}

UI_MacroVariant UI_Macro::Execute(MacroSource* source, SYS_String const& function,
                                  UI_MacroVariant* args, int argCount) {
    SCL_Pointer<MacroSource> keep(source);
    UI_MacroImpl& engine = impl();
    refuseReentry(engine);
    const EntryGuard entry(engine);
    engine.SetSource(source);
    if (engine.IsStopping()) // by a callback of the reset, which may have ended this object, too
        return UI_MacroVariant();
    return run(engine, SYS_String(), function, args, argCount);
}

void UI_Macro::OpenMacroFile(SYS_String const& path) {
    UI_MacroImpl& engine = impl();
    SCL_ASSERT(&engine == MacroSupport::GetProcessor(),
               "UI_Macro: this engine is not the current processor");
    refuseReentry(engine);
    const EntryGuard entry(engine);
    engine.SetSource(new MacroSourceFile(path));
}

UI_MacroVariant UI_Macro::ExecuteMacroString(SYS_String const& text) {
    UI_MacroImpl& engine = impl();
    refuseReentry(engine);
    const SYS_String directory = GetPlatform().TempDirectory();
    SYS_String name;
    bool written = false;
    SYS_String path;
    if (GetPlatform().CreateTempFile(directory, "", ".tmp", name) == PlatformStatus::Ok) {
        path = SCL::PathNormalize(SCL::PathAppend(directory, name), true);
        SFM_File file(path);
        written = file.Open("w") && file.WriteLine(text);
        written = file.Close() && written;
        if (!written)
            file.Delete();
    }
    if (!written)
        throw SYS_Exception("%s", TR(kNoTemporaryFile).c_str());
    UI_MacroVariant result = run(engine, path, SYS_String(), nullptr, 0);
    SFM_File(path).Delete();
    return result;
}

UI_MacroVariant UI_Macro::Eval(MacroSource* source, bool sideEffects) {
    const SCL_Pointer<MacroSource> keep(source);
    auto* outer = dynamic_cast<MacroParser*>(MacroSupport::GetProcessor());
    if (!SCL_ASSERT(outer, "UI_Macro::Eval: there is no current processor") || !outer)
        return UI_MacroVariant();
    const EntryGuard entry(*outer); // it outlives the evaluation, and a stop waits for its end
    const cMacroContextSwaper swapped(*outer, source);
    return outer->Eval(sideEffects);
}

void UI_Macro::Stop() {
    SCL_ASSERT(m_Impl, "UI_Macro::Stop: nothing has been started");
    if (m_Impl)
        m_Impl->RequestStop();
}

// --- Objects, recording ------------------------------------------------------------------------

void UI_Macro::Register(MacroEval& object, char const* name) { impl().Register(object, name); }

void UI_Macro::Remove(MacroEval& object) { impl().Remove(object, nullptr); }

int UI_Macro::EnableAutomation(char const* name, IDispatch* object) {
    MacroSupport* processor = MacroSupport::GetProcessor();
    return processor ? processor->EnableAutomation(name, object) : 0;
}

void UI_Macro::StartRecording(MacroOutput* output) {
    SCL_Pointer<MacroOutput> keep(output);
    UI_MacroImpl& engine = impl();
    const bool isIdle = !engine.IsBusy();
    const EntryGuard entry(engine);
    if (isIdle)
        engine.Reset();
    engine.BeginRecording(output);
}

void UI_Macro::StopRecording() {
    if (!m_Impl)
        return;
    UI_MacroImpl& engine = *m_Impl;
    const bool isIdle = !engine.IsBusy();
    const EntryGuard entry(engine);
    if (isIdle)
        engine.Reset();
    engine.SetOutput(nullptr);
}

// --- The current processor ---------------------------------------------------------------------

int UI_Macro::GetReturnValue() {
    const MacroSupport* processor = MacroSupport::GetProcessor();
    return processor ? processor->GetReturnValue() : 0;
}

void UI_Macro::RequestExit(int code) {
    if (MacroSupport* processor = MacroSupport::GetProcessor())
        processor->RequestExit(code);
}

int UI_Macro::InRecordMode() {
    const MacroSupport* processor = MacroSupport::GetProcessor();
    return processor ? processor->InRecordMode() : 0;
}

int UI_Macro::InPlaybackMode() {
    const MacroSupport* processor = MacroSupport::GetProcessor();
    return processor ? processor->InPlaybackMode() : 0;
}

int UI_Macro::GetCompressID() {
    MacroSupport* processor = MacroSupport::GetProcessor();
    return processor ? processor->GetCompressID() : 0;
}

int UI_Macro::GetRelativeMode() {
    const MacroSupport* processor = MacroSupport::GetProcessor();
    return processor ? processor->GetRelativeMode() : 0;
}

int UI_Macro::SetBMWLogFile(char const* path, int append) {
    MacroSupport* processor = MacroSupport::GetProcessor();
    return processor ? processor->SetBMWLogFile(path, append) : 0;
}

int UI_Macro::InBMWLoggingMode() {
    const MacroSupport* processor = MacroSupport::GetProcessor();
    return processor ? processor->InBMWLoggingMode() : 0;
}

UI_Macro::PlaybackResultCode UI_Macro::ContinuePlayback(char const* name) {
    MacroSupport* processor = MacroSupport::GetProcessor();
    if (!processor)
        return pbFailed;
    const auto mode = processor->GetExecutionMode();
    if (mode == MacroSupport::emStopped || mode == MacroSupport::emPaused ||
        mode >= MacroSupport::emFinished)
        return pbNotHandled;
    return processor->PlayBack(1, nullptr, name);
}

void UI_Macro::OnError(SYS_String const& message) {
    if (MacroSupport* processor = MacroSupport::GetProcessor())
        processor->OnError(message);
}

SCC_Array<SYS_String> UI_Macro::GetFunctionNames() {
    UI_MacroImpl& engine = impl();
    SCL_ASSERT(&engine == MacroSupport::GetProcessor(), "UI_Macro");
    engine.RefreshFunctionTable();
    SCC_Array<SYS_String> names;
    for (const auto& entry : engine.GetProcedures())
        names.Append(entry.value.GetName());
    if (names.IsEmpty())
        names.Append(SYS_String());
    return names;
}

SCC_Array<SYS_String> UI_Macro::GetFunctionDescriptions() {
    UI_MacroImpl& engine = impl();
    SCL_ASSERT(&engine == MacroSupport::GetProcessor(), "UI_Macro");
    SCC_Array<SYS_String> descriptions;
    for (const auto& entry : engine.GetProcedures())
        descriptions.Append(entry.value.GetDescription());
    return descriptions;
}

// --- Editors ------------------------------------------------------------------------------------

void UI_Macro::SetInputString(const char* text) {
    UI_Tokenizer::SetInputString(text);
    impl().GetTokenizer().Begin();
}

int UI_Macro::GetNextToken(CStringA& piece) {
    const EditorPiece next = impl().GetTokenizer().Next(m_Cursor);
    setPiece(next.text.data(), next.text.size());
    piece = CStringA(next.text);
    if (next.lacksQuote)
        piece += '"';
    return next.kind;
}

int UI_Macro::GetFgColor(int pieceClass) {
    impl();
    return pieceClass == pcKeyword ? 0xFF0000 : UI_Tokenizer::GetFgColor(pieceClass);
}

int UI_Macro::CheckMacroFile(SYS_String const& path, int* errorLine) {
    UI_MacroImpl& engine = impl();
    refuseReentry(engine);
    return engine.CheckMacroFile(path, errorLine);
}

MacroReport UI_Macro::InspectMacroFile(SYS_String const& path) {
    UI_MacroImpl& engine = impl();
    refuseReentry(engine);
    return engine.InspectMacroFile(path);
}

MacroReport UI_Macro::InspectMacroText(SYS_String const& text, SYS_String const& name) {
    UI_MacroImpl& engine = impl();
    refuseReentry(engine);
    return engine.InspectMacroText(text, name);
}

// --- Frames ------------------------------------------------------------------------------------

int UI_Macro::GetFramesCount() {
    const MacroSupport* processor = MacroSupport::GetProcessor();
    return processor ? processor->GetFramesCount() : 0;
}

namespace {

const ExecutionContext* frameOf(int frame) {
    const MacroSupport* processor = MacroSupport::GetProcessor();
    return processor ? processor->GetContext(frame) : nullptr;
}

} // namespace

SYS_String UI_Macro::GetContext(int frame) {
    const ExecutionContext* context = frameOf(frame);
    return context ? context->m_Name : SYS_String();
}

int UI_Macro::GetPosition(int frame) {
    const ExecutionContext* context = frameOf(frame);
    return context ? static_cast<int>(context->m_Position) : 0;
}

MacroSource* UI_Macro::GetSource(int frame) {
    const ExecutionContext* context = frameOf(frame);
    return context ? context->m_Source.Get() : nullptr;
}

SCL_Vector<MacroVariableInfo> UI_Macro::GetVariables(int frame) {
    const MacroSupport* processor = MacroSupport::GetProcessor();
    return processor ? processor->ListVariables(frame) : SCL_Vector<MacroVariableInfo>();
}

bool UI_Macro::GetVariable(int frame, SYS_String const& name, UI_MacroVariant& value) {
    const MacroSupport* processor = MacroSupport::GetProcessor();
    return processor && processor->ReadVariable(frame, name, value);
}

bool UI_Macro::SetVariable(int frame, SYS_String const& name, UI_MacroVariant const& value) {
    MacroSupport* processor = MacroSupport::GetProcessor();
    return processor && processor->WriteVariable(frame, name, value);
}
