#pragma once

#include <UI_MacroProcessor.h>

#include "runtime/Arguments.h"

/// Looking at a value must not change anything outside the macro. Raises: 46 during a look.
inline void RefuseWhileLooking() {
    const MacroSupport* processor = MacroSupport::GetProcessor();
    if (processor && processor->GetExecutionMode() == MacroSupport::emEvalPure)
        Fail(errInternal);
}
