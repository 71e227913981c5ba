#pragma once

#include <SYS_String.h>

#include <exception>

namespace kel_ns {

/// The foundation's exception: a text made from a printf format.
class KEL_MCR_API SYS_Exception : public std::exception {
public:
    explicit SYS_Exception(const char* format, ...) KEL_PRINTF_LIKE(2, 3);

    const SYS_String& GetText() const noexcept { return m_Text; }
    const char* what() const noexcept override { return m_Text; }

private:
    SYS_String m_Text;
};

} // namespace kel_ns
