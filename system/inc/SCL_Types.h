#pragma once

// Fixed-width integer name of the public interface. It is long long on every platform, so that
// overloads for int, long and __int64 stay three separate ones.
#if !defined(_MSC_VER) && !defined(__int64)
typedef long long __int64;
#endif

// Marks what a shared library exports. Define KEL_MCR_SHARED when building or using the library
// in its shared form; a static build needs no marks.
#if defined(KEL_MCR_SHARED) && defined(__GNUC__)
#define KEL_MCR_API __attribute__((visibility("default")))
#else
#define KEL_MCR_API
#endif

// Lets the compiler check printf-like arguments. For member functions count `this` as argument 1.
#if defined(__GNUC__)
#define KEL_PRINTF_LIKE(formatIndex, firstArgument)                                                \
    __attribute__((format(printf, formatIndex, firstArgument)))
#else
#define KEL_PRINTF_LIKE(formatIndex, firstArgument)
#endif
