#include <cCommandLineSwitchInfo.h>

#include <Platform.h>

namespace kel_ns {

cCommandLineSwitchInfo::cCommandLineSwitchInfo(const char* name, bool takesValue,
                                               const char* defaultValue, const char* help,
                                               bool ignoreCase, bool slashForm)
    : m_Name(name), m_Default(defaultValue), m_Help(help), m_TakesValue(takesValue),
      m_IgnoreCase(ignoreCase), m_SlashForm(slashForm) {}

// `rest` gets what stands behind the name: "", or a value with its '=' or ':'.
bool cCommandLineSwitchInfo::matches(const SYS_String& argument, SYS_String& rest) const {
    unsigned start = 0;
    if (argument[0] == '-')
        start = argument[1] == '-' ? 2 : 1;
    else if (argument[0] == '/' && m_SlashForm)
        start = 1;
    if (start == 0 || m_Name.IsEmpty())
        return false;
    const unsigned length = static_cast<unsigned>(m_Name.GetLength());
    const SYS_String name = argument.Mid(start, length);
    if (m_IgnoreCase ? name.CompareNoCase(m_Name) != 0 : name.Compare(m_Name) != 0)
        return false;
    rest = argument.Mid(start + length);
    return rest.IsEmpty() || rest[0] == '=' || rest[0] == ':';
}

std::vector<SYS_String> cCommandLineSwitchInfo::values() const {
    const std::vector<SYS_String> arguments = GetPlatform().Arguments();
    std::vector<SYS_String> found;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        SYS_String value;
        if (!matches(arguments[i], value))
            continue;
        const bool attached = value.GetLength() > 1;
        const bool bare = value.IsEmpty();
        if (attached)
            value = value.Mid(1);
        else if (bare && m_TakesValue && i + 1 < arguments.size() && arguments[i + 1][0] != '-')
            value = arguments[++i];
        else
            value = m_Default;
        found.push_back(value);
    }
    return found;
}

bool cCommandLineSwitchInfo::IsFound() const { return !values().empty(); }

SYS_String cCommandLineSwitchInfo::GetValue(unsigned index) const {
    const std::vector<SYS_String> all = values();
    return index < all.size() ? all[index] : SYS_String();
}

} // namespace kel_ns
