#include "objects/ScriptFiles.h"

#include <Platform.h>
#include <SCL_Path.h>
#include <SCL_Pointer.h>

namespace {

bool isFile(const SYS_String& path) {
    return GetPlatform().Exists(path) && !GetPlatform().IsDirectory(path);
}

} // namespace

SYS_String FindScript(const SYS_String& path, const SYS_String& folder) {
    const SYS_String file = SCL::PathNormalize(path, false);
    if (isFile(file))
        return file;
    if (!SCL::PathIsRelative(file.View()))
        return SYS_String();
    SYS_String list;
    GetPlatform().GetEnvironment("TSN_MACRO_PATH", list);
    SCL_Pointer<SCL::cFilePathListImplBase> folders = SCL::cFilePathListImplBase::create(nullptr);
    if (!folder.IsEmpty())
        folders->add_directory(folder);
    folders->add_list(list);
    for (int i = 0; i < folders->count(); ++i) {
        const SYS_String found = SCL::PathNormalize(SCL::PathAppend(folders->at(i), file), false);
        if (isFile(found))
            return found;
    }
    return SYS_String();
}
