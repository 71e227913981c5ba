#include <SLibs.h>

#include <SCL_Assert.h>
#include <SYS_Locale.h>

namespace kel_ns {

namespace {

int s_Starts = 0;

} // namespace

bool SLibsDllInitialize() {
    ++s_Starts;
    // Makes the locale object now: later it might be wanted when memory has run out.
    SYS_CLocale cLocale;
    return true;
}

void SLibsDllTerminate() {
    if (SCL_ASSERT(s_Starts > 0, "SLibsDllTerminate without SLibsDllInitialize"))
        --s_Starts;
}

bool SLibsIsInitialized() { return s_Starts > 0; }

} // namespace kel_ns
