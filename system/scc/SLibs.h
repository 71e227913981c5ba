#pragma once

#include <SCL_Types.h>

namespace kel_ns {

/// Start and end of the foundation. Calls may nest; each start wants its end. An end without a
/// start is an assertion and changes nothing. Nothing of the foundation needs tearing down: what
/// it keeps stays usable while the statics of others are destroyed.
KEL_MCR_API bool SLibsDllInitialize();
KEL_MCR_API void SLibsDllTerminate();

/// True between the two.
KEL_MCR_API bool SLibsIsInitialized();

} // namespace kel_ns
