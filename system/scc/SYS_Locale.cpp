#include <SYS_Locale.h>

namespace kel_ns {

namespace {

// Made once and kept to the end of the process.
locale_t cLocale() {
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(nullptr));
    return locale;
}

} // namespace

SYS_CLocale::SYS_CLocale() : m_Old(uselocale(cLocale())) {}

SYS_CLocale::~SYS_CLocale() { uselocale(m_Old); }

} // namespace kel_ns
