#pragma once

#include <UI_MacroProcessor.h>

/// A log: lines behind what the file holds already, each written out at once.
class MacroSupport::MacroLogFile : public MacroOutputFile {
public:
    /// Without a file. Its holder owns it; it is not counted.
    MacroLogFile();

    /// Opens a file in a mode of SFM_File; one that is open is closed first.
    bool Open(char const* name, char const* mode);
    bool IsOpen() const { return m_File.IsOpen(); }
    void Close() { m_File.Close(); }
    const SYS_String& GetName() const { return m_File.GetName(); }

    /// 0 if there is no file or the write failed.
    int Record(char const* text) override;
};
