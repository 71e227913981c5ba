#include "values/Failure.h"

#include <SCL_Assert.h>
#include <UI_MacroProcessor.h>

UI_MacroVariant Fail(MacroERR_Code code, const SYS_String& param) {
    MacroSupport* processor = MacroSupport::GetProcessor();
    if (!SCL_ASSERT(processor, "A value failed without a processor"))
        return UI_MacroVariant();
    return processor->OnError(code, param);
}

UI_MacroVariant Fail(const SYS_String& message) {
    MacroSupport* processor = MacroSupport::GetProcessor();
    if (!SCL_ASSERT(processor, "A value failed without a processor"))
        return UI_MacroVariant();
    return processor->OnError(message);
}

UI_MacroVariant FailOutOfMemory() { return Fail(errRuntime, "out of memory"); }
