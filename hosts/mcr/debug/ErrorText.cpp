#include "ErrorText.h"

std::string ShortErrorText(const kel_ns::SYS_String& text) {
    const std::string_view whole = text.View();
    const std::string_view line = whole.substr(0, whole.find('\n'));
    return std::string(line.substr(0, line.find_last_not_of(": \r") + 1));
}
