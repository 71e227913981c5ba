#pragma once

#include <UI_MacroProcessor.h>

#include "values/Failure.h"

/// Whether an argument is there and was not left out.
inline bool IsGiven(int argc, const UI_MacroVariant* argv, int place) {
    return place < argc && argv[place].GetType() != vvtMissing;
}

/// Looking at a value must not change anything outside the macro. Raises: 46 during a look.
inline void RefuseWhileLooking() {
    const MacroSupport* processor = MacroSupport::GetProcessor();
    if (processor && processor->GetExecutionMode() == MacroSupport::emEvalPure)
        Fail(errInternal);
}
