#include "FileFailure.h"

#include <AutomationObject.h>

namespace scripting {

using kel_ns::PlatformStatus;

namespace {

const char* textOf(PlatformStatus status) {
    switch (status) {
    case PlatformStatus::Ok:
        return "";
    case PlatformStatus::NotFound:
        return "File or folder not found";
    case PlatformStatus::AlreadyExists:
        return "It is there already";
    case PlatformStatus::AccessDenied:
        return "Access denied";
    case PlatformStatus::IsDirectory:
        return "That is a folder";
    case PlatformStatus::NotDirectory:
        return "That is no folder";
    case PlatformStatus::InUse:
        return "The file is in use";
    case PlatformStatus::NoSpace:
        return "No space is left";
    case PlatformStatus::Invalid:
        return "The name is not valid";
    case PlatformStatus::Failed:
        break;
    }
    return "The system reports a failure";
}

} // namespace

void CheckFile(PlatformStatus status, const SYS_String& path) {
    if (status == PlatformStatus::Ok)
        return;
    SYS_String text = textOf(status);
    text << ": '" << path << "'";
    throw automation::Failure(text);
}

} // namespace scripting
