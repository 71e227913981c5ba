#include <SCL_Assert.h>

#include <csignal>
#include <cstdio>

namespace kel_ns {

namespace {

void defaultDebugOutput([[maybe_unused]] const char* text) {
#ifndef NDEBUG
    std::fputs(text, stderr);
#endif
}

bool defaultAssertHandler(const char* message, const char* file, int line) {
    char text[1024];
    std::snprintf(text, sizeof text, "%s:%d: %s\n", file, line, message);
    SCL_DebugOutput(text);
    return true;
}

SCL_AssertHandler s_AssertHandler = defaultAssertHandler;
SCL_DebugOutputFunction s_DebugOutput = defaultDebugOutput;

} // namespace

SCL_AssertHandler SetAssertHandler(SCL_AssertHandler handler) {
    SCL_AssertHandler old = s_AssertHandler;
    s_AssertHandler = handler ? handler : defaultAssertHandler;
    return old;
}

SCL_DebugOutputFunction SetDebugOutput(SCL_DebugOutputFunction output) {
    SCL_DebugOutputFunction old = s_DebugOutput;
    s_DebugOutput = output ? output : defaultDebugOutput;
    return old;
}

void SCL_DebugOutput(const char* text) {
    if (text)
        s_DebugOutput(text);
}

bool SDM_AssertFailed(EAssertFailureType, const char* expression, const char* file, int line) {
    return s_AssertHandler(expression ? expression : "", file ? file : "", line);
}

bool SSM_AssertFailed(const char* message, const char* file, int line, SSM_FailureType, int) {
    return s_AssertHandler(message ? message : "", file ? file : "", line);
}

void SCL_DebugBreak() { std::raise(SIGTRAP); }

bool SCL_ReportFailure(const char* message, const char* file, int line) {
    if (!SSM_AssertFailed(message, file, line, SSM_Error))
        SCL_DebugBreak();
    return false;
}

void SCL_ReportFatal(const char* message, const char* file, int line) {
    if (!SSM_AssertFailed(message, file, line, SSM_Fatal))
        SCL_DebugBreak();
    SSM_Throw();
}

} // namespace kel_ns
