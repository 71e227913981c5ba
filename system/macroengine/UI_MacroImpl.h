#pragma once

#include <UI_MacroProcessor.h>

/// The engine behind the door.
class UI_MacroImpl : public MacroParser {
public:
    explicit UI_MacroImpl(bool nested) : MacroParser(nested) {}

    using MacroParser::operator=;

    int InRecordMode() const override;
    int InPlaybackMode() const override;
    /// A relative name is looked for beside the file of the macro that started this run.
    UI_MacroVariant ExecuteMacro(const SYS_String& file, const SYS_String& function,
                                 UI_MacroVariant* args, int argc) override;
};
