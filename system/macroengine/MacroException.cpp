#include "MacroException.h"

#include <MacroSource.h>
#include <SYS_Resources.h>

#include <iterator>

#include "engine/ErrorTexts.h"

namespace {

constexpr int kUnknownErrorId = 820;

const SYS_Resource kErrorTexts[] = {
#define MACRO_ERROR(code, name, id, text) {id, text},
#include "engine/ErrorCodes.def"
#undef MACRO_ERROR
    {45136, "Cannot create a temporary file"},
};

int resourceOf(MacroERR_Code code) {
    switch (static_cast<int>(code)) {
#define MACRO_ERROR(number, name, id, text)                                                        \
    case number:                                                                                   \
        return id;
#include "engine/ErrorCodes.def"
#undef MACRO_ERROR
    }
    return kUnknownErrorId;
}

} // namespace

void RegisterMacroErrorTexts() {
    SYS_RegisterResources(kErrorTexts, static_cast<int>(std::size(kErrorTexts)));
}

const void* MacroErrorTexts() { return kErrorTexts; }

SYS_String GetMacroErrorText(MacroERR_Code code) {
    const int id = resourceOf(code);
    if (id == 0)
        return SYS_String();
    SYS_String text = TR(id);
    return text.IsEmpty() ? SYS_String("Unknown Error") : text;
}

MacroException::MacroException(const SYS_String& text, const SYS_String& path, int position,
                               MacroSource* source)
    : m_Source(source), m_Text(text), m_FilePath(path), m_Position(position) {}

MacroException::MacroException(MacroERR_Code code, const SYS_String& path, int position,
                               MacroSource* source)
    : MacroException(GetMacroErrorText(code), path, position, source) {}

MacroException::MacroException(const MacroException& other) = default;
MacroException& MacroException::operator=(const MacroException& other) = default;
MacroException::~MacroException() = default;

void MacroException::AddParam(const SYS_String& param) {
    m_Text += ": ";
    m_Text += param;
}

MacroSource* MacroException::GetSource() const { return m_Source; }

MacroStopException::~MacroStopException() = default;
