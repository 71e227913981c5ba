#pragma once

#include <string>

/// Ends the command under way. The author of the macro, or the user, is told why.
[[noreturn]] void Refuse(const std::string& why);
