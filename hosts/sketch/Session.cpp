#include "Session.h"

#include "Gestures.h"
#include "RecordOutput.h"
#include "SvgWriter.h"

#include <SYS_Exception.h>
#include <Scripting.h>

#include <filesystem>
#include <iostream>
#include <string_view>

namespace {

void report(const std::string& message) {
    std::cout.flush();
    std::cerr << message << '\n';
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
    SCL_Pointer<MacroSourceFile> source(new MacroSourceFile(path.c_str()));
    if (std::filesystem::is_directory(path, error) || !source->IsReadable()) {
        report("sketch: " + path + ": cannot be read");
        code = ExitUsage;
        return false;
    }
    code = ExitFault;
    try {
        m_Macro.Execute(source, SYS_String(), nullptr, 0);
        // A block that is never closed ends the parse without an exception.
        const MacroSupport& processor = *MacroSupport::GetProcessor();
        if (processor.GetLastErrorText().IsEmpty()) {
            code = UI_Macro::GetReturnValue();
            return true;
        }
        report(place(path, static_cast<int>(processor.GetLastErrorLine()) + 1) +
               processor.GetLastErrorText().c_str());
    } catch (const MacroException& failure) {
        const SYS_String& file = failure.GetFilePath();
        std::string text(failure.GetText().View());
        if (!failure.GetDetail().IsEmpty())
            text += "\n  " + std::string(failure.GetDetail().View());
        report(place(file.IsEmpty() ? path : file.c_str(), failure.GetPosition() + 1) + text);
    } catch (const SYS_Exception& failure) {
        report(std::string("sketch: ") + failure.GetText().c_str());
    } catch (const std::exception& failure) {
        report(std::string("sketch: ") + failure.what());
    }
    return false;
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
