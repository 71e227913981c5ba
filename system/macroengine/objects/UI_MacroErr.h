#pragma once

#include <UI_MacroEval.h>

/// A place for an error object of the language. It has no name, so macros cannot reach it, and no
/// members.
class UI_MacroErr final : public MacroEval {
public:
    explicit UI_MacroErr(MacroSupport& owner);

    using MacroEval::operator=;

    /// A Reference to itself, whatever the name.
    UI_MacroVariant Evaluate(const char* name, UI_MacroVariant* args, int argc) override;
};
