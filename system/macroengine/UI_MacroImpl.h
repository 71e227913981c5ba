#pragma once

#include <MacroReport.h>
#include <UI_MacroProcessor.h>

#include <memory>

class EditorTokenizer;

/// The engine behind the door.
class UI_MacroImpl : public MacroParser {
public:
    explicit UI_MacroImpl(bool nested);
    ~UI_MacroImpl() override;

    using MacroParser::operator=;

    int InRecordMode() const override;
    int InPlaybackMode() const override;
    /// A relative name is looked for beside the file of the macro that started this run.
    UI_MacroVariant ExecuteMacro(const SYS_String& file, const SYS_String& function,
                                 UI_MacroVariant* args, int argc) override;

    EditorTokenizer& GetTokenizer() { return *m_Tokenizer; }

    // Parsing alone; each leaves the engine reset and without a source.
    int CheckMacroFile(const SYS_String& path, int* errorLine);
    MacroReport InspectMacroFile(const SYS_String& path);
    MacroReport InspectMacroText(const SYS_String& text, const SYS_String& name);

private:
    class Check;

    std::unique_ptr<EditorTokenizer> m_Tokenizer;
};
