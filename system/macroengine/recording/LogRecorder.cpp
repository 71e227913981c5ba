#include "recording/LogRecorder.h"

#include <Platform.h>
#include <SFM_Directory.h>
#include <SFM_FilePath.h>

LogRecorder& LogRecorder::Instance() {
    static auto& recorder = *new LogRecorder;
    // Objects of the host may still record while the program ends, so only the file goes.
    static const struct AtUnload {
        ~AtUnload() { recorder.m_Log.Close(); }
    } atUnload;
    return recorder;
}

bool LogRecorder::GetCompressionMode() const {
    const MacroSupport* current = GetProcessor();
    return current ? current->GetCompressionMode() : MacroParser::GetCompressionMode();
}

void LogRecorder::OpenLog(const SYS_String& fileOfSwitch) {
    if (InBackgroundMode())
        return;
    const SYS_String folder = SFM_FilePath::GetDefaultPath("Logs");
    SFM_FilePath usual(folder);
    usual.AddSeparator().SetFileNameExt(SFM_FilePath::GetApplicationName() + ".log");
    SFM_FilePath file(fileOfSwitch);
    file.SetDefault(SYS_String(usual));
    if (file.GetFileDirectory() == usual.GetFileDirectory() && !GetPlatform().Exists(folder))
        SFM_Directory::MakeDirectory(folder);

    if (GetPlatform().Exists(SYS_String(file))) {
        SFM_FilePath backup(file);
        backup.SetFileExtension(".bak");
        SFM_File(SYS_String(backup)).Delete();
        SFM_Directory::MoveFileA(SYS_String(file), SYS_String(backup), 0);
    }
    m_Log.Open(SYS_String(file), "w");
}
