#pragma once

#include <UI_MacroImpl.h>

/// Keeps the tree, the source and the place of a processor for the time of an evaluation; the
/// processor has its own, fresh ones meanwhile. Frames, variables, objects and open files stay.
class cMacroContextSwaper : public UI_MacroImpl {
public:
    /// `outer` must outlive this object.
    cMacroContextSwaper(MacroParser& outer, MacroSource* source);
    cMacroContextSwaper(const cMacroContextSwaper&) = delete;
    cMacroContextSwaper& operator=(const cMacroContextSwaper&) = delete;
    ~cMacroContextSwaper() override;

private:
    void swap();

    MacroParser& m_Outer;
};
