#include "Scripting.h"

#include "Dictionary.h"
#include "FileSystemObject.h"

namespace scripting {

namespace {

constexpr const char* kDictionary = "Scripting.Dictionary";
constexpr const char* kFileSystemObject = "Scripting.FileSystemObject";

} // namespace

void Register() {
    automation::RegisterClass(kDictionary, [] { return new Dictionary; });
    automation::RegisterClass(kFileSystemObject, [] { return new FileSystemObject; });
}

void Revoke() {
    automation::RevokeClass(kDictionary);
    automation::RevokeClass(kFileSystemObject);
}

} // namespace scripting
