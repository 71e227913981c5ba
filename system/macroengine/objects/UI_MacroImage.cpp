#include "objects/UI_MacroImage.h"

#include <algorithm>
#include <utility>

UI_MacroImage::UI_MacroImage(ImageData&& data) : MacroEval(""), m_Data(std::move(data)) {
    SetDeletePending(true);
}

UI_MacroVariant UI_MacroImage::Make(ImageData&& data) {
    return UI_MacroVariant(static_cast<UI_MacroVariant*>(new UI_MacroImage(std::move(data))));
}

cMacroAppClass* UI_MacroImage::GetMacroClass() {
    using Self = UI_MacroImage;
    static cMacroAppClass self("Image", MacroEval::GetMacroClass());
    static cMacroClassProperty<Self> height(self, "Height", TypeNameInt, &Self::GetHeight);
    static cMacroClassProperty<Self> width(self, "Width", TypeNameInt, &Self::GetWidth);
    static cMacroClassMethod<Self> clip(
        self, "Clip", "Image", &Self::Clip, false, cMacroArgument("left", TypeNameInt),
        cMacroArgument("top", TypeNameInt), cMacroArgument("width", TypeNameInt),
        cMacroArgument("height", TypeNameInt));
    static cMacroClassMethod<Self> blend(self, "Blend", "Image", &Self::Blend);
    return &self;
}

const ScriptDebugger::iApplicationClass* UI_MacroImage::GetMacroDescriptor() const {
    return GetMacroClass();
}

UI_MacroVariant UI_MacroImage::Evaluate(const char* name, UI_MacroVariant* args, int argc) {
    UI_MacroVariant result;
    if (EvaluateMember(*this, name, args, argc, result))
        return result;
    return MacroEval::Evaluate(name, args, argc);
}

UI_MacroVariant UI_MacroImage::GetWidth(int, UI_MacroVariant*) const { return m_Data.width; }

UI_MacroVariant UI_MacroImage::GetHeight(int, UI_MacroVariant*) const { return m_Data.height; }

UI_MacroVariant UI_MacroImage::Clip(int, UI_MacroVariant* args) const {
    const __int64 left = static_cast<int>(args[0]);
    const __int64 top = static_cast<int>(args[1]);
    const __int64 right = left + static_cast<int>(args[2]);
    const __int64 bottom = top + static_cast<int>(args[3]);
    const auto within = [](__int64 place, int size) {
        return static_cast<std::size_t>(std::clamp<__int64>(place, 0, size));
    };
    const std::size_t x = within(left, m_Data.width);
    const std::size_t y = within(top, m_Data.height);
    const std::size_t endX = std::max(x, within(right, m_Data.width));
    const std::size_t endY = std::max(y, within(bottom, m_Data.height));
    ImageData part;
    part.width = static_cast<int>(endX - x);
    part.height = static_cast<int>(endY - y);
    part.pixels.reserve((endX - x) * (endY - y));
    const std::uint32_t* pixels = m_Data.pixels.data();
    for (std::size_t row = y; row < endY; ++row) {
        const std::uint32_t* start = pixels + row * static_cast<std::size_t>(m_Data.width);
        part.pixels.insert(part.pixels.end(), start + x, start + endX);
    }
    return Make(std::move(part));
}

UI_MacroVariant UI_MacroImage::Blend(int, UI_MacroVariant*) const {
    return Make(ImageData(m_Data));
}
