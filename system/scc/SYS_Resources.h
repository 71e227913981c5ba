#pragma once

#include <SYS_String.h>

namespace kel_ns {

/// One row of a table of texts.
struct SYS_Resource {
    int id;
    const char* text;
};

/// Adds a table, which must live to the end of the process. Of two rows with one id the table added
/// last wins. Adding the same table again changes nothing.
KEL_MCR_API void SYS_RegisterResources(const SYS_Resource* rows, int count);

/// The text of a string resource; empty if there is none.
KEL_MCR_API SYS_String TR(int id);

} // namespace kel_ns
