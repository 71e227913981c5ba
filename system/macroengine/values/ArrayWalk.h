#pragma once

#include <UI_MacroVariant.h>

#include <vector>

/// Walks the elements of an array for reading, innermost dimension fastest. Holds a copy that
/// shares the elements, so whatever happens to the array meanwhile, the walk goes on over what it
/// began with.
class ArrayWalk {
public:
    explicit ArrayWalk(const UI_MacroVariant& array) : m_Array(array) { Reset(); }
    ArrayWalk(const ArrayWalk&) = delete;
    ArrayWalk& operator=(const ArrayWalk&) = delete;

    void Reset() {
        m_Levels.clear();
        if (m_Array.GetType() == vvtArray && m_Array.GetArrNumDims() > 0)
            open(m_Array);
    }

    /// The next element, null at the end. Owner: the walk.
    const UI_MacroVariant* Next() {
        const auto dims = static_cast<std::size_t>(m_Array.GetArrNumDims());
        while (!m_Levels.empty()) {
            Level& level = m_Levels.back();
            if (level.next >= level.array->GetCount()) {
                m_Levels.pop_back();
                continue;
            }
            const UI_MacroVariant& element = level.array->GetData()[level.next++];
            if (m_Levels.size() == dims)
                return &element;
            if (element.GetType() == vvtArray)
                open(element);
        }
        return nullptr;
    }

    /// Where the element just given stands in a level, counted from 0; level 0 is the outermost.
    int GetPlace(int level) const { return m_Levels[static_cast<std::size_t>(level)].next - 1; }
    /// The same as the index that a macro writes there.
    int GetIndex(int level) const {
        return m_Levels[static_cast<std::size_t>(level)].array->GetLowerBound() + GetPlace(level);
    }

private:
    struct Level {
        const UI_MacroArray* array;
        int next;
    };

    void open(const UI_MacroVariant& value) { m_Levels.push_back({&value.Arrval(), 0}); }

    const UI_MacroVariant m_Array;
    std::vector<Level> m_Levels;
};
