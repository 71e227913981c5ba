#pragma once

#include <UI_MacroVariant.h>

#include <string>
#include <vector>

/// Shows values, arrays and objects member by member, within bounds.
class ValuePrinter {
public:
    struct Bounds {
        int members;    ///< of one array or object
        int depth;      ///< levels below the value itself
        int lines;      ///< of all
        int textLength; ///< of one string, in bytes
    };

    explicit ValuePrinter(const Bounds& bounds) : m_Bounds(bounds) {}

    /// "NAME = VALUE" and a line for each member. Re-enters: properties of host objects.
    std::string Show(const std::string& name, const UI_MacroVariant& value);
    /// The value on one line.
    std::string Line(const UI_MacroVariant& value) const;

private:
    void add(const std::string& name, const UI_MacroVariant& value, int level);
    void addParts(const UI_MacroVariant& value, int level);
    void addLine(const std::string& text, int level);
    bool isFull() const { return m_Lines >= m_Bounds.lines; }

    const Bounds m_Bounds;
    std::string m_Text;
    int m_Lines = 0;
    std::vector<const UI_MacroVariant*> m_Opened; // the objects around the value at hand
};
