#pragma once

#include <SCL_Types.h>
#include <SYS_String.h>

#include <vector>

namespace kel_ns {

/// A switch on the command line of the process: -name, --name or /name. Its value follows after
/// '=' or ':' or as the next argument, unless that is a switch of the form -x itself. The command
/// line is looked at with every call, so one of these may be a static.
class KEL_MCR_API cCommandLineSwitchInfo {
public:
    /// `defaultValue` stands in for a value that was left out; null is "". Without `takesValue`
    /// the next argument is never a value. `help` describes the switch to the user. With
    /// `slashForm` false "/name" is an ordinary argument.
    cCommandLineSwitchInfo(const char* name, bool takesValue, const char* defaultValue = nullptr,
                           const char* help = nullptr, bool ignoreCase = true,
                           bool slashForm = true);

    bool IsFound() const;
    /// The value that the switch was given with the index-th time; "" if there was no such time.
    SYS_String GetValue(unsigned index = 0) const;
    const SYS_String& GetHelp() const noexcept { return m_Help; }

private:
    std::vector<SYS_String> values() const;
    bool matches(const SYS_String& argument, SYS_String& rest) const;

    SYS_String m_Name;
    SYS_String m_Default;
    SYS_String m_Help;
    bool m_TakesValue;
    bool m_IgnoreCase;
    bool m_SlashForm;
};

} // namespace kel_ns
