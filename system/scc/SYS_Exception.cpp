#include <SYS_Exception.h>

#include <SCL_Assert.h>

namespace kel_ns {

SYS_Exception::SYS_Exception(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    try {
        m_Text.FormatV(format, arguments);
    } catch (...) {
        va_end(arguments);
        throw;
    }
    va_end(arguments);
}

// Stands here and not beside the other assertion functions, which know no string.
void SSM_Throw() { throw SYS_Exception("Fatal error"); }

} // namespace kel_ns
