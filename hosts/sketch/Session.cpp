#include "Session.h"

#include "Gestures.h"
#include "RecordOutput.h"
#include "SvgWriter.h"

#include <HostSource.h>
#include <SYS_Exception.h>
#include <Scripting.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <string_view>

namespace {

void report(const std::string& message) {
    std::cout.flush();
    std::cerr << message << (message.ends_with('\n') ? "" : "\n");
}

std::string place(const std::string& file, int line) {
    return file + ":" + std::to_string(line) + ": ";
}

} // namespace

Session::Session() {
    MacroHostHooks hooks;
    // A program for the command line has its files where it is called, its log too.
    hooks.defaultPath = [](const char* name) {
        return std::string_view(name) == "Logs" ? SYS_String(".") : SYS_String();
    };
    // There are no windows: what a macro wants to show goes here, its questions answer themselves.
    hooks.debugOutput = report;
    MacroSupport::SetHostHooks(hooks);
    m_Macro.Register(m_App, nullptr);
    m_Macro.Register(m_App.GetDocument(), nullptr);
    m_Macro.Register(m_App.GetOptions(), nullptr);
    scripting::Register();
    MacroSupport::GetProcessor()->InitBackgroundMode(); // looks for --log itself
}

Session::~Session() { MacroSupport::SetHostHooks(MacroHostHooks()); }

bool Session::Play(const std::string& path, int& code) {
    std::error_code error;
    errno = 0;
    SCL_Pointer<MacroSourceFile> source(new HostSource(path.c_str(), m_Trace));
    if (std::filesystem::is_directory(path, error))
        errno = EISDIR;
    if (errno == EISDIR || !source->IsReadable()) {
        report("sketch: " + path + ": " + (errno != 0 ? std::strerror(errno) : "cannot be read"));
        code = ExitUsage;
        return false;
    }
    code = ExitFault;
    m_Trace.Clear();
    try {
        m_Macro.Execute(source, SYS_String(), nullptr, 0);
        // A block that is never closed ends the parse without an exception.
        const MacroSupport& processor = *MacroSupport::GetProcessor();
        if (processor.GetLastErrorText().IsEmpty()) {
            code = UI_Macro::GetReturnValue();
            return true;
        }
        reportMacro(path, static_cast<int>(processor.GetLastErrorLine()),
                    processor.GetLastErrorText());
    } catch (const MacroException& failure) {
        const SYS_String& file = failure.GetFilePath();
        SYS_String text = failure.GetText();
        if (!failure.GetDetail().IsEmpty())
            text = text + "\n  " + failure.GetDetail();
        reportMacro(file.IsEmpty() ? path : file.c_str(), failure.GetPosition(), text);
    } catch (const SYS_Exception& failure) {
        report(std::string("sketch: ") + failure.GetText().c_str());
    } catch (const std::exception& failure) {
        report(std::string("sketch: ") + failure.what());
    }
    return false;
}

/// `line` counts from 0.
void Session::reportMacro(const std::string& file, int line, const SYS_String& text) const {
    std::string message = place(file, line + 1) + text.c_str();
    if (!message.ends_with('\n'))
        message += '\n';
    report(message + m_Trace.Describe());
}

bool Session::Record(Lines& lines, const std::string& name, bool goesOn, std::ostream& macro) {
    RecordOutput output(macro);
    output.DisableRefCount();
    m_Macro.StartRecording(&output);
    MacroSupport::GetProcessor()->SetCompressionMode(true);
    Gestures gestures(m_Desk, m_App, lines, goesOn, [&](int line, const std::string& message) {
        report(place(name, line) + message);
    });
    const bool isDone = gestures.Run();
    m_Macro.StopRecording();
    return isDone;
}

std::string Session::GetPicture() const { return WriteSvg(m_Desk.editor); }
