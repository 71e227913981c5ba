#pragma once

#include <vector>

namespace kel_ns::SCL {

/// A growing sequence of values without sharing; see SCC_Array for the one that shares.
template <class T> using SCL_Vector = std::vector<T>;

} // namespace kel_ns::SCL

namespace kel_ns {
using SCL::SCL_Vector;
}
