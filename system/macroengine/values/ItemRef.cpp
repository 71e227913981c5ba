// References to array elements.

#include <SCL_Assert.h>
#include <SCL_StaticAlloc.h>
#include <UI_MacroVariant.h>

#include "values/CopyOut.h"
#include "values/Failure.h"
#include "values/Parts.h"

int UI_MacroVariantItemRef::s_LiveCount = 0;

void* UI_MacroVariantItemRef::operator new(std::size_t size) {
    return SCL::cStaticAlloc().allocate(size);
}

void UI_MacroVariantItemRef::operator delete(void* cell, std::size_t size) {
    SCL::cStaticAlloc().deallocate(cell, size);
}

UI_MacroVariantItemRef::UI_MacroVariantItemRef(UI_MacroVariant* element)
    : UI_MacroVariant(Role::Element), m_Element(element) {
    SCL_ASSERT(element != this, "UI_MacroVariantItemRef: an element cannot refer to itself");
    ++s_LiveCount;
    SetDeletePending(true);
    if (element)
        UI_MacroVariant::operator=(*element);
}

UI_MacroVariantItemRef::~UI_MacroVariantItemRef() { --s_LiveCount; }

/// Brings the own copy up to date with the element, if that still lives.
void UI_MacroVariantItemRef::refresh() {
    if (!m_Element)
        return;
    Clear();
    UI_MacroVariant::operator=(*m_Element.Get());
}

/// The element, free to take another object or value; null if it has gone.
UI_MacroVariant* UI_MacroVariantItemRef::clearedElement() {
    UI_MacroVariant* element = m_Element;
    if (element && ((element->m_Type == vvtObject && element->GetWFlags() == 0) ||
                    element->m_Type == vvtReference))
        element->Clear(); // letting go of an object may run host code
    return m_Element;
}

UI_MacroVariantItemRef& UI_MacroVariantItemRef::operator=(const UI_MacroVariant& src) {
    const UI_MacroVariant keep(src); // the element may own the source
    if (UI_MacroVariant* element = m_Element)
        *element = keep;
    UI_MacroVariant::operator=(keep);
    return *this;
}

void UI_MacroVariantItemRef::Assign(const UI_MacroVariant& src) {
    // The value is read first: reading may run host code that reshapes the array.
    UI_MacroVariant temp;
    UI_MacroVariant value;
    if (UI_MacroVariant* rv = temp.derefObject(src).GetRVal()) {
        if (rv == m_Element.Get())
            return;
        value.copyFrom(*rv);
    } else {
        value.SetLValueVal(nullptr);
    }
    if (UI_MacroVariant* element = clearedElement()) {
        element->Assign(value);
        refresh();
    } else {
        UI_MacroVariant::Assign(value);
    }
}

void UI_MacroVariantItemRef::SetObjectRef(const UI_MacroVariant& src) {
    if (m_Element && (&src == m_Element.Get() || src.getRefVal() == m_Element.Get())) {
        Fail(errSetToItself);
        return;
    }
    UI_MacroVariant value = src.IsMacroEval() ? UI_MacroVariant(const_cast<UI_MacroVariant*>(&src))
                                              : UI_MacroVariant(src);
    if (UI_MacroVariant* element = clearedElement()) {
        element->SetObjectRef(value);
        refresh();
    } else {
        UI_MacroVariant::SetObjectRef(value);
    }
}

void UI_MacroVariantItemRef::InitRVal() {
    UI_MacroVariant* element = m_Element;
    if (!element) {
        UI_MacroVariant::InitRVal();
        return;
    }
    element->InitRVal();
    refresh();
}

UI_MacroVariant* UI_MacroVariantItemRef::GetRVal() const {
    UI_MacroVariant* element = m_Element;
    return element ? element->GetRVal() : UI_MacroVariant::GetRVal();
}
