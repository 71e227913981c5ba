#pragma once

#include "Document.h"
#include "Options.h"

/// The program itself, with its document. It owns what macros can name.
class App : public SketchObject<App> {
public:
    explicit App(Desk& desk)
        : SketchObject("App"), m_Desk(desk), m_Document(desk), m_Options(desk) {}
    using SketchObject::operator=;

    static cMacroAppClass* GetMacroClass();

    Document& GetDocument() { return m_Document; }
    Options& GetOptions() { return m_Options; }

    /// Macros can write `vbColorRed` and the like, and `vbNoColor`.
    void OnParserReset(MacroSupport& processor) override;
    /// How a macro writes a colour.
    static std::string ColorText(int color);

private:
    UI_MacroVariant GetAppName(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant GetVersion(int argc, UI_MacroVariant* args) const;
    UI_MacroVariant GetDocument(int argc, UI_MacroVariant* args);
    UI_MacroVariant ShowOptions(int argc, UI_MacroVariant* args);
    UI_MacroVariant ShowText(int argc, UI_MacroVariant* args);
    UI_MacroVariant Quit(int argc, UI_MacroVariant* args);

    Desk& m_Desk;
    Document m_Document;
    Options m_Options;
};
