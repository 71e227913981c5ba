#pragma once

#include <SCL_Types.h>

namespace kel_ns {

enum EAssertFailureType { eAssertWarning = 0, eAssertError = 1, eAssertFatal = 2 };
enum SSM_FailureType { SSM_Warning = 0, SSM_Error = 1, SSM_Fatal = 2 };

/// Receives every failed assertion. A false result asks the failing place to break into the
/// debugger; true goes on behind the assertion, which every place survives without harm.
typedef bool (*SCL_AssertHandler)(const char* message, const char* file, int line);

/// Installs the handler of the whole process and returns the one before it. Null brings back the
/// default, which writes `file:line: message` to the debug output and returns true.
KEL_MCR_API SCL_AssertHandler SetAssertHandler(SCL_AssertHandler handler);

typedef void (*SCL_DebugOutputFunction)(const char* text);

/// Where debug text goes; returns the function before it. Null brings back the default: standard
/// error in debug builds, nowhere in release builds.
KEL_MCR_API SCL_DebugOutputFunction SetDebugOutput(SCL_DebugOutputFunction output);

/// Writes the text, as it is, to the debug output.
KEL_MCR_API void SCL_DebugOutput(const char* text);

/// Report a failed assertion to the handler. On false the caller is to break (SCL_DebugBreak).
KEL_MCR_API bool SDM_AssertFailed(EAssertFailureType type, const char* expression, const char* file,
                                  int line);
KEL_MCR_API bool SSM_AssertFailed(const char* message, const char* file, int line,
                                  SSM_FailureType type = SSM_Error, int reserved = 0);

/// Throws the foundation's fatal exception, a SYS_Exception.
[[noreturn]] KEL_MCR_API void SSM_Throw();

/// Stops in the debugger (SIGTRAP).
KEL_MCR_API void SCL_DebugBreak();

/// Reports the message, breaks if the handler asks for it; always returns false.
KEL_MCR_API bool SCL_ReportFailure(const char* message, const char* file, int line);

/// The same for a failure that nothing can go on from: ends in SSM_Throw().
[[noreturn]] KEL_MCR_API void SCL_ReportFatal(const char* message, const char* file, int line);

} // namespace kel_ns

// Checks in every build. Has the value of the condition, so that the code behind can back out:
//     if (!SCL_ASSERT(index >= 0, "Negative index"))
//         return nullptr;
#define SCL_ASSERT(condition, message)                                                             \
    (static_cast<bool>(condition) || ::kel_ns::SCL_ReportFailure((message), __FILE__, __LINE__))

// Checks at the fatal level: a false condition ends in SSM_Throw().
#define SCL_ASSERT_FATAL(condition, message)                                                       \
    (static_cast<bool>(condition) ? static_cast<void>(0)                                           \
                                  : ::kel_ns::SCL_ReportFatal((message), __FILE__, __LINE__))
