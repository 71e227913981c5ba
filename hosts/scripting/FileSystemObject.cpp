#include "FileSystemObject.h"

#include "FileOperations.h"
#include "Folders.h"
#include "PathNames.h"

#include <SCL_Path.h>

#include <random>

namespace scripting {

using namespace kel_ns;

const automation::Members& FileSystemObject::GetMembers() const {
    using F = FileSystemObject;
    static const automation::Members members(
        "Scripting.FileSystemObject",
        {
            automation::Property<&F::HasFile>("FileExists", 1),
            automation::Property<&F::HasFolder>("FolderExists", 1),
            automation::Method<&F::CreateTextFile>("CreateTextFile", 1, 2),
            automation::Method<&F::OpenTextFile>("OpenTextFile", 1, 3),
            automation::Property<&F::GetFile>("GetFile", 1),
            automation::Property<&F::GetFolder>("GetFolder", 1),
            automation::Property<&F::GetSpecialFolder>("GetSpecialFolder", 1),
            automation::Method<&F::CreateFolder>("CreateFolder", 1),
            automation::Method<&F::DeleteFile>("DeleteFile", 1, 1),
            automation::Method<&F::DeleteFolder>("DeleteFolder", 1, 1),
            automation::Method<&F::CopyFile>("CopyFile", 2, 1),
            automation::Method<&F::CopyFolder>("CopyFolder", 2, 1),
            automation::Method<&F::MoveFile>("MoveFile", 2),
            automation::Method<&F::MoveFolder>("MoveFolder", 2),
            automation::Property<&F::BuildPath>("BuildPath", 2),
            automation::Property<&F::GetBaseName>("GetBaseName", 1),
            automation::Property<&F::GetExtensionName>("GetExtensionName", 1),
            automation::Property<&F::GetFileName>("GetFileName", 1),
            automation::Property<&F::GetParentFolderName>("GetParentFolderName", 1),
            automation::Property<&F::GetAbsolutePathName>("GetAbsolutePathName", 1),
            automation::Property<&F::GetTempName>("GetTempName"),
        });
    return members;
}

// --- files and folders -------------------------------------------------------------------------

bool FileSystemObject::HasFile(const Arguments& arguments) { return FileExists(arguments.Text(0)); }

bool FileSystemObject::HasFolder(const Arguments& arguments) {
    return FolderExists(arguments.Text(0));
}

COleVariant FileSystemObject::CreateTextFile(const Arguments& arguments) {
    return CreateText(arguments.Text(0), arguments, 1);
}

COleVariant FileSystemObject::OpenTextFile(const Arguments& arguments) {
    const SYS_String path = arguments.Text(0);
    return OpenText(path, arguments.Integer(1, 1), arguments.Truth(2, false),
                    FormatIn(arguments, 3, path));
}

COleVariant FileSystemObject::GetFile(const Arguments& arguments) {
    return File::Make(arguments.Text(0));
}

COleVariant FileSystemObject::GetFolder(const Arguments& arguments) {
    return Folder::Make(arguments.Text(0));
}

COleVariant FileSystemObject::GetSpecialFolder(const Arguments& arguments) {
    if (arguments.Integer(0) != 2)
        throw automation::Failure("There is no special folder but the one for temporary files (2)");
    return Folder::Make(GetPlatform().TempDirectory());
}

COleVariant FileSystemObject::CreateFolder(const Arguments& arguments) {
    return Folder::Create(arguments.Text(0));
}

void FileSystemObject::DeleteFile(const Arguments& arguments) { DeleteFiles(arguments.Text(0)); }

void FileSystemObject::DeleteFolder(const Arguments& arguments) {
    DeleteFolders(arguments.Text(0));
}

void FileSystemObject::CopyFile(const Arguments& arguments) {
    CopyFiles(arguments.Text(0), arguments.Text(1), arguments.Truth(2, true));
}

void FileSystemObject::CopyFolder(const Arguments& arguments) {
    CopyFolders(arguments.Text(0), arguments.Text(1), arguments.Truth(2, true));
}

void FileSystemObject::MoveFile(const Arguments& arguments) {
    MoveFiles(arguments.Text(0), arguments.Text(1));
}

void FileSystemObject::MoveFolder(const Arguments& arguments) {
    MoveFolders(arguments.Text(0), arguments.Text(1));
}

// --- paths -------------------------------------------------------------------------------------

SYS_String FileSystemObject::BuildPath(const Arguments& arguments) {
    return JoinPath(arguments.Text(0), arguments.Text(1));
}

SYS_String FileSystemObject::GetBaseName(const Arguments& arguments) {
    return BaseNameOf(arguments.Text(0));
}

SYS_String FileSystemObject::GetExtensionName(const Arguments& arguments) {
    return ExtensionOf(arguments.Text(0));
}

SYS_String FileSystemObject::GetFileName(const Arguments& arguments) {
    return FileNameOf(arguments.Text(0));
}

SYS_String FileSystemObject::GetParentFolderName(const Arguments& arguments) {
    return ParentOf(arguments.Text(0));
}

SYS_String FileSystemObject::GetAbsolutePathName(const Arguments& arguments) {
    return SCL::PathNormalize(arguments.Text(0), true);
}

SYS_String FileSystemObject::GetTempName() {
    static std::mt19937 s_Random{std::random_device{}()};
    SYS_String name = "rad";
    name.Add(0x10000000u + s_Random() % 0xF0000000u, 16);
    return name += ".tmp";
}

} // namespace scripting
