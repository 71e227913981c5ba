#include "objects/UI_MacroErr.h"

#include <UI_MacroProcessor.h>

UI_MacroErr::UI_MacroErr(MacroSupport& owner) : MacroEval("") { owner.Register(*this, nullptr); }

UI_MacroVariant UI_MacroErr::Evaluate(const char*, UI_MacroVariant*, int) {
    return UI_MacroVariant(static_cast<UI_MacroVariant*>(this));
}
