#pragma once

#include <SCL_Types.h>

#include <clocale>

#if defined(__APPLE__)
#include <xlocale.h>
#else
#include <locale.h>
#endif

namespace kel_ns {

/// Switches this thread to the C locale for the life of the object, so that C library calls read
/// and write numbers with a point whatever locale the host has set.
class KEL_MCR_API SYS_CLocale {
public:
    SYS_CLocale();
    ~SYS_CLocale();
    SYS_CLocale(const SYS_CLocale&) = delete;
    SYS_CLocale& operator=(const SYS_CLocale&) = delete;

private:
    locale_t m_Old;
};

} // namespace kel_ns
