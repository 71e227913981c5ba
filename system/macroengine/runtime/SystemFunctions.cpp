#include "runtime/FunctionTable.h"

#include <Platform.h>
#include <SCL_Assert.h>
#include <SFM_Directory.h>
#include <SFM_FilePath.h>

#include <iterator>

#include "runtime/FileTable.h"
#include "runtime/OuterWorld.h"

// --- The process -------------------------------------------------------------------------------

UI_MacroVariant MacroCommand(int argc, UI_MacroVariant*) {
    if (argc != 0)
        return Fail(errIncorrectArgument);
    return GetPlatform().CommandLine();
}

UI_MacroVariant MacroEnviron(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return Fail(errIncorrectArgument);
    SYS_String value;
    if (!GetPlatform().GetEnvironment(static_cast<SYS_String>(argv[0]), value))
        return "";
    return value;
}

UI_MacroVariant MacroScriptEngine(int argc, UI_MacroVariant*) {
    return argc == 0 ? UI_MacroVariant("ORV Macro Engine") : Fail(errIncorrectArgument);
}

UI_MacroVariant MacroScriptEngineBuildVersion(int argc, UI_MacroVariant*) {
    return argc == 0 ? UI_MacroVariant("1.0") : Fail(errIncorrectArgument);
}

UI_MacroVariant MacroScriptEngineMajorVersion(int argc, UI_MacroVariant*) {
    return argc == 0 ? UI_MacroVariant("1") : Fail(errIncorrectArgument);
}

UI_MacroVariant MacroScriptEngineMinorVersion(int, UI_MacroVariant*) { return "0"; }

// --- Files and directories ---------------------------------------------------------------------

UI_MacroVariant MacroCurDir(int argc, UI_MacroVariant* argv) {
    if (argc > 1 || (argc == 1 && !argv))
        return Fail(errIncorrectArgument);
    int drive = 0;
    if (IsGiven(argc, argv, 0)) {
        drive = SYS_ToUpper(static_cast<SYS_String>(argv[0])[0]) - '@';
        if (drive < 1 || drive > 26)
            drive = 0;
    }
    return SFM_Directory::GetCurDir(drive);
}

UI_MacroVariant MacroDir(int argc, UI_MacroVariant* argv) {
    if (argc > 2 || (argc > 0 && !argv))
        return Fail(errIncorrectArgument);
    RefuseWhileLooking();
    MacroSupport* processor = MacroSupport::GetProcessor();
    if (!processor)
        return "";
    SYS_String path;
    FileTable& files = processor->GetFiles();
    if (IsGiven(argc, argv, 0))
        path = static_cast<SYS_String>(argv[0]);
    if (argc > 0)
        files.GetSearchAttributes() =
            IsGiven(argc, argv, 1) ? static_cast<unsigned>(static_cast<int>(argv[1])) : 0;
    return files.GetSearch().GetNextEntryWithAttr(files.GetSearchAttributes(), path);
}

UI_MacroVariant MacroGetTmpFileName(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return Fail(errIncorrectArgument);
    RefuseWhileLooking();
    return SFM_Directory(static_cast<SYS_String>(argv[0])).GetTempFileNameA(nullptr);
}

UI_MacroVariant MacroMkDir(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return Fail(errIncorrectArgument);
    RefuseWhileLooking();
    SFM_Directory::MakeDirectory(static_cast<SYS_String>(argv[0]));
    return {};
}

UI_MacroVariant MacroMoveFile(int argc, UI_MacroVariant* argv) {
    if (argc != 2 || !argv)
        return Fail(errIncorrectArgument);
    RefuseWhileLooking();
    const auto from = static_cast<SYS_String>(argv[0]);
    SFM_Directory::MoveFileA(from, static_cast<SYS_String>(argv[1]), 1);
    return {};
}

UI_MacroVariant MacroEOF(int argc, UI_MacroVariant* argv) {
    if (argc != 1 || !argv)
        return Fail(errIncorrectArgument);
    const auto stream = static_cast<int>(argv[0]);
    const MacroSupport* processor = MacroSupport::GetProcessor();
    const auto file = processor ? processor->GetFiles().FindOpen(stream) : nullptr;
    return file && file->IsAtEnd();
}

// --- Dialogs -----------------------------------------------------------------------------------

namespace {

/// The number of the button that Enter would press.
int defaultButton(int flags) {
    enum { Ok = 1, Cancel, Abort, Retry, Ignore, Yes, No };
    static constexpr int kSets[][3] = {
        {Ok}, {Ok, Cancel}, {Abort, Retry, Ignore}, {Yes, No, Cancel}, {Yes, No}, {Retry, Cancel}};
    const unsigned set = static_cast<unsigned>(flags) & 15;
    const unsigned index = (static_cast<unsigned>(flags) & 0x300) / 256;
    const auto& buttons = kSets[set < std::size(kSets) ? set : 0];
    return index < 3 && buttons[index] != 0 ? buttons[index] : buttons[0];
}

int showMessage(const SYS_String& text, int flags, const SYS_String& title) {
    if (const auto& hook = MacroSupport::GetHostHooks().messageBox)
        return hook(text, flags, title);
    SYS_String line = title;
    line << ": " << text << "\n";
    SCL_DebugOutput(line);
    return defaultButton(flags);
}

} // namespace

UI_MacroVariant MacroMsgBox(int argc, UI_MacroVariant* argv) {
    if (argc < 1 || argc > 5 || argc == 4 || !argv)
        return Fail(errIncorrectArgument);
    RefuseWhileLooking();
    const auto text = static_cast<SYS_String>(argv[0]);
    const int flags = IsGiven(argc, argv, 1) ? static_cast<int>(argv[1]) : 0;
    const SYS_String title = IsGiven(argc, argv, 2) ? static_cast<SYS_String>(argv[2])
                                                    : SFM_FilePath::GetApplicationName();
    return showMessage(text, flags, title);
}

UI_MacroVariant MacroDoEvents(int argc, UI_MacroVariant* argv) {
    if (argc > 1 || (argc == 1 && (!argv || IsGiven(argc, argv, 0))))
        return Fail(errIncorrectArgument);
    RefuseWhileLooking();
    if (const auto& hook = MacroSupport::GetHostHooks().doEvents)
        hook();
    return {};
}
