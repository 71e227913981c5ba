#pragma once

#include <AutomationObject.h>

namespace scripting {

using kel_ns::SYS_String;

/// Files and folders by their paths. Slash and backslash both separate.
class FileSystemObject final : public automation::Object {
public:
    const automation::Members& GetMembers() const override;

private:
    using Arguments = automation::Arguments;

    bool HasFile(const Arguments& arguments);
    bool HasFolder(const Arguments& arguments);
    COleVariant CreateTextFile(const Arguments& arguments);
    COleVariant OpenTextFile(const Arguments& arguments);
    COleVariant GetFile(const Arguments& arguments);
    COleVariant GetFolder(const Arguments& arguments);
    /// 2 is the folder for temporary files; the others do not exist here.
    COleVariant GetSpecialFolder(const Arguments& arguments);
    COleVariant CreateFolder(const Arguments& arguments);
    void DeleteFile(const Arguments& arguments);
    void DeleteFolder(const Arguments& arguments);
    void CopyFile(const Arguments& arguments);
    void CopyFolder(const Arguments& arguments);
    void MoveFile(const Arguments& arguments);
    void MoveFolder(const Arguments& arguments);

    SYS_String BuildPath(const Arguments& arguments);
    SYS_String GetBaseName(const Arguments& arguments);
    SYS_String GetExtensionName(const Arguments& arguments);
    SYS_String GetFileName(const Arguments& arguments);
    SYS_String GetParentFolderName(const Arguments& arguments);
    SYS_String GetAbsolutePathName(const Arguments& arguments);
    /// A name that no file bears yet, most likely; nothing is made.
    SYS_String GetTempName();
};

} // namespace scripting
