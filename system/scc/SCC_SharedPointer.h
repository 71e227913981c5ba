#pragma once

#include <SCL_Pointer.h>

namespace kel_ns {

/// A shared owner of a tRefCounted object: the last one to go deletes it.
template <class T> using SCC_SharedPointer = SCL_Pointer<T>;

} // namespace kel_ns
