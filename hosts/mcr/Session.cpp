#include "Session.h"

#include <HostSource.h>
#include <SYS_Exception.h>
#include <Scripting.h>

#include "MacroText.h"
#include "MessageBox.h"
#include "Watch.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

namespace {

std::string place(const SYS_String& file, int line) {
    return std::string(file.View()) + ":" + std::to_string(line + 1) + ": ";
}

} // namespace

void WriteError(const std::string& text) {
    Console::Flush();
    std::fwrite(text.data(), 1, text.size(), stderr);
}

Session::Session() {
    MacroHostHooks hooks;
    hooks.statement = [this](long line) { onStatement(line); };
    hooks.messageBox = &ShowMessageBox;
    MacroSupport::SetHostHooks(hooks);
    m_Macro.Register(m_Console, nullptr);
    scripting::Register();
}

Session::~Session() { MacroSupport::SetHostHooks(MacroHostHooks()); }

bool Session::Waiting::KeepsWaiting() {
    return Watch::GetReason() == Watch::Running && PlatformLayer::KeepsWaiting();
}

MacroParser& Session::GetParser() {
    return static_cast<MacroParser&>(*MacroSupport::GetProcessor());
}

// Called for every statement of every macro in this process, so it must be short.
void Session::onStatement(long) {
    if (Watch::GetReason() == Watch::Running)
        return;
    m_Trace.Note();
    // The macro that runs now may be one that another one started; stopping it stops both.
    GetParser().RequestStop();
}

SCL_Pointer<MacroSource> Session::OpenSource(const std::string& path) {
    if (path == "-") {
        SYS_String text;
        return ReadMacroText(path, text) ? new TextSource(text, "-", m_Trace) : nullptr;
    }

    std::error_code error;
    if (std::filesystem::is_directory(path, error)) {
        WriteError("mcr: " + path + ": Is a directory\n");
        return nullptr;
    }
    errno = 0;
    SCL_Pointer<HostSource> source(new HostSource(path.c_str(), m_Trace));
    if (!source->IsReadable()) {
        const char* reason = errno != 0 ? std::strerror(errno) : "Cannot be read";
        WriteError("mcr: " + path + ": " + reason + "\n");
        return nullptr;
    }
    return source;
}

int Session::Guard(MacroSource& source, const std::function<int()>& work) {
    m_Trace.Clear();
    try {
        const int code = work();
        const Watch::Reason reason = Watch::GetReason();
        if (reason != Watch::Running)
            return reportError(source.GetFileName(), m_Trace.GetLine(), Watch::Describe(reason));
        // A block that is never closed ends the parse without an exception.
        const MacroSupport& processor = GetParser();
        if (!processor.GetLastErrorText().IsEmpty())
            return reportError(source.GetFileName(), static_cast<int>(processor.GetLastErrorLine()),
                               std::string(processor.GetLastErrorText().View()));
        return code;
    } catch (const MacroException& error) {
        const SYS_String& path = error.GetFilePath();
        std::string text(error.GetText().View());
        // Whoever was woken while waiting for a file has failed, but that is not what happened.
        if (Watch::GetReason() != Watch::Running)
            text = Watch::Describe(Watch::GetReason());
        else if (!error.GetDetail().IsEmpty())
            text += "\n  " + std::string(error.GetDetail().View());
        return reportError(path.IsEmpty() ? source.GetFileName() : path, error.GetPosition(), text);
    } catch (const SYS_Exception& error) {
        WriteError("mcr: " + std::string(error.GetText()) + "\n");
    } catch (const std::exception& error) {
        WriteError("mcr: " + std::string(error.what()) + "\n");
    }
    return ExitMacroError;
}

int Session::reportError(const SYS_String& file, int line, const std::string& text) const {
    std::string message = place(file, line) + text;
    if (message.back() != '\n')
        message += '\n';
    WriteError(message + m_Trace.Describe());
    return ExitMacroError;
}
