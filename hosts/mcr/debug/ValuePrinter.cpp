#include "ValuePrinter.h"

#include <MacroInspection.h>

#include <algorithm>

namespace {

constexpr int kIndent = 2;

// The value that a reader would see; null for Null.
const UI_MacroVariant* readable(const UI_MacroVariant& value) {
    const UI_MacroVariant* read = value.GetRVal();
    if (read && read->GetType() == vvtReference && !read->IsMacroEval())
        read = read->getBody();
    return read;
}

std::string quoted(const SYS_String& text, int length) {
    std::string shown = "\"";
    const std::string_view bytes = text.View();
    for (const char byte : bytes.substr(0, static_cast<std::size_t>(length))) {
        if (byte == '\n')
            shown += "\\n";
        else if (byte == '\r')
            shown += "\\r";
        else if (byte == '\t')
            shown += "\\t";
        else if (static_cast<unsigned char>(byte) < ' ')
            shown += "\\?";
        else
            shown += byte == '"' ? "\"\"" : std::string(1, byte);
    }
    shown += '"';
    if (bytes.size() > static_cast<std::size_t>(length))
        shown += "... (" + std::to_string(bytes.size()) + " bytes)";
    return shown;
}

std::string arrayText(const UI_MacroVariant& array) {
    std::string bounds;
    for (int dimension = 1; dimension <= array.GetArrNumDims(); ++dimension)
        bounds += (bounds.empty() ? "" : ", ") +
                  std::to_string(array.GetArrayLowerBound(dimension)) + " To " +
                  std::to_string(array.GetArrayUpperBound(dimension));
    return array.Arrval().IsEmpty() ? "array without elements" : "array (" + bounds + ")";
}

} // namespace

std::string ValuePrinter::Show(const std::string& name, const UI_MacroVariant& value) {
    m_Text.clear();
    m_Lines = 0;
    add(name, value, 0);
    return m_Text;
}

std::string ValuePrinter::Line(const UI_MacroVariant& value) const {
    const UI_MacroVariant* read = readable(value);
    if (!read)
        return "Null";
    if (read->IsMacroEval())
        return std::string(read->DescribeVar().View());
    switch (read->GetType()) {
    case vvtEmpty:
    case vvtMissing:
        return "Empty";
    case vvtString:
        return quoted(read->GetStringVal(), m_Bounds.textLength);
    case vvtInteger:
    case vvtDouble:
    case vvtBoolean:
        return std::string(static_cast<SYS_String>(*read).View());
    case vvtArray:
        return arrayText(*read);
    case vvtObject:
        if (!read->GetDispatchVal())
            return "Nothing";
        break;
    case vvtFunction:
    case vvtReference:
    case vvtHandle:
    case vvtScript:
    case vvtUnknown:
        break;
    }
    return std::string(read->DescribeVar().View());
}

void ValuePrinter::add(const std::string& name, const UI_MacroVariant& value, int level) {
    addLine(name + " = " + Line(value), level);
    if (level >= m_Bounds.depth || isFull())
        return;
    const UI_MacroVariant* read = readable(value);
    if (read && read->IsMacroEval() &&
        std::find(m_Opened.begin(), m_Opened.end(), read) != m_Opened.end())
        return; // objects may lead back to one another
    m_Opened.push_back(read);
    addParts(value, level + 1);
    m_Opened.pop_back();
}

void ValuePrinter::addParts(const UI_MacroVariant& value, int level) {
    const int count = CountMacroParts(value);
    const int shown = std::min(count, m_Bounds.members);
    for (const MacroPartInfo& part : ListMacroParts(value, 0, shown)) {
        if (isFull())
            return;
        if (part.hasFailed)
            addLine(std::string(part.name) + ": " + part.description.c_str(), level);
        else
            add(std::string(part.name), part.value, level);
    }
    if (shown < count)
        addLine("... " + std::to_string(count - shown) + " more", level);
}

// The last line that fits says that there would be others.
void ValuePrinter::addLine(const std::string& text, int level) {
    if (isFull())
        return;
    ++m_Lines;
    m_Text.append(static_cast<std::size_t>(level) * kIndent, ' ');
    m_Text += isFull() ? "..." : text;
    m_Text += '\n';
}
