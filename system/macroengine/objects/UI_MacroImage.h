#pragma once

#include <UI_MacroEval.h>

#include "objects/ImageFile.h"

/// A picture that a macro has loaded. Lives on the heap and goes with the last Reference to it, so
/// variables, arrays and host values that hold it share one picture and nobody frees it.
class UI_MacroImage final : public MacroEval {
public:
    /// A Reference to a new picture.
    static UI_MacroVariant Make(ImageData&& data);

    using MacroEval::operator=;

    UI_MacroVariant Evaluate(const char* name, UI_MacroVariant* args, int argc) override;
    const ScriptDebugger::iApplicationClass* GetMacroDescriptor() const override;
    static cMacroAppClass* GetMacroClass();

    UI_MacroVariant GetWidth(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant GetHeight(int argc, UI_MacroVariant* args) const;
    /// A new picture of the part that lies within this one, which may be nothing.
    UI_MacroVariant Clip(int argc, UI_MacroVariant* args) const;
    /// A copy.
    UI_MacroVariant Blend(int argc, UI_MacroVariant* args) const;

    const ImageData& GetData() const { return m_Data; }

private:
    explicit UI_MacroImage(ImageData&& data);

    ImageData m_Data;
};
