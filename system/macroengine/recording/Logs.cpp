// The logs of a processor.

#include <SCL_Assert.h>
#include <cCommandLineSwitchInfo.h>

#include "recording/LogRecorder.h"

namespace {

const cCommandLineSwitchInfo& logSwitch() {
    static const auto& log = *new cCommandLineSwitchInfo(
        "log", true, ".log", "keeps a log of everything that is recorded");
    return log;
}

} // namespace

void MacroSupport::InitBackgroundMode() {
    if (logSwitch().IsFound())
        LogRecorder::Instance().OpenLog(logSwitch().GetValue());
}

bool MacroSupport::InBackgroundMode() const { return false; }

int MacroSupport::InBMWLoggingMode() const { return m_BMWLog ? 1 : 0; }

int MacroSupport::SetBMWLogFile(char const* path, int append) {
    if (!m_BMWLog) {
        auto log = std::make_unique<MacroLogFile>();
        const bool opened = log->Open(path, append != 0 ? "a+" : "w");
        if (!SCL_ASSERT(opened, "Failed to open BMW file for writing"))
            return 0;
        m_BMWLog = std::move(log);
    } else if (path) {
        SCL_ASSERT(m_BMWLog->GetName() == path, "Attempt to open another BMW file");
    } else {
        m_BMWLog.reset();
    }
    return 1;
}
