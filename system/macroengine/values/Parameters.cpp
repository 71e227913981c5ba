// Variables, parameters and constants: a parameter bound to a Reference is an alias of its target.

#include <SCL_Assert.h>
#include <UI_MacroVariant.h>

#include "values/CopyOut.h"
#include "values/Failure.h"
#include "values/FastPath.h"
#include "values/Parts.h"

UI_MacroVariantParam::UI_MacroVariantParam(bool constant) : UI_MacroVariant(Role::Variable) {
    m_Constant = constant;
}

UI_MacroVariantParam::UI_MacroVariantParam(const UI_MacroVariant& value, bool constant)
    : UI_MacroVariant(Role::Variable) {
    UI_MacroVariant::operator=(value);
    m_Constant = constant;
}

UI_MacroVariantParam::UI_MacroVariantParam(const UI_MacroVariantParam& other)
    : UI_MacroVariant(Role::Variable) {
    UI_MacroVariant::operator=(other);
}

UI_MacroVariantParam::~UI_MacroVariantParam() = default;

UI_MacroVariantParam& UI_MacroVariantParam::operator=(const UI_MacroVariant& src) {
    if (m_Constant || &src == this)
        return *this;
    if (src.m_Type != vvtReference) {
        UI_MacroVariant::operator=(src);
        return *this;
    }
    SCC_SafePointer<UI_MacroVariant> target = src.m_Target; // the source may be what is cleared
    Clear();
    SetLValueVal(target);
    reduce();
    return *this;
}

UI_MacroVariantParam& UI_MacroVariantParam::operator=(const UI_MacroVariantParam& src) {
    return *this = static_cast<const UI_MacroVariant&>(src);
}

UI_MacroVariant* UI_MacroVariantParam::reduce() {
    if (m_Type != vvtReference)
        return this;
    UI_MacroVariant* direct = m_Target;
    if (!direct || direct->m_Role != Role::Variable)
        return this;
    UI_MacroVariant* end = direct;
    while (end->m_Type == vvtReference) {
        UI_MacroVariant* next = end->m_Target;
        if (!next || next->m_Role != Role::Variable)
            break;
        if (!SCL_ASSERT(next != this, "UI_MacroVariantParam: variables refer to each other")) {
            m_Target = nullptr; // reads as Null from now on
            return this;
        }
        end = next;
    }
    if (end != this && end != direct)
        m_Target = end;
    return end;
}

/// The end of the chain of variables, or beyond it the element or host value that it refers to.
UI_MacroVariant* UI_MacroVariantParam::writeTarget() {
    UI_MacroVariant* end = reduce();
    if (end->m_Type == vvtReference) {
        UI_MacroVariant* target = end->m_Target;
        if (target && target->m_Role != Role::Variable && target->m_Role != Role::Object)
            return target;
    }
    return end;
}

/// Takes a plain scalar where nothing has to be let go of; false leaves the work to others.
bool UI_MacroVariantParam::takeScalar(UI_MacroVariant& t, const UI_MacroVariant& value) {
    if (t.m_Role != Role::Variable || value.m_Type < vvtString || value.m_Type > vvtBoolean ||
        t.m_Parts || t.m_Target.IsSet())
        return false;
    if (value.m_Type == vvtString) {
        t.m_Text = value.m_Text;
        t.m_Payload.integer = 0;
    } else {
        if (!t.m_Text.IsEmpty())
            t.m_Text.Clear();
        t.m_Payload = value.m_Payload;
    }
    t.m_FlagsOrDims = 0;
    t.m_IdOrArrayType = 0;
    t.m_Type = value.m_Type;
    return true;
}

void UI_MacroVariantParam::Assign(const UI_MacroVariant& src) {
    if (m_Constant)
        return;
    // The value is read first: reading may run host code that moves or ends the target.
    UI_MacroVariant temp;
    const UI_MacroVariant& from = liveElement(src);
    UI_MacroVariant* rv = const_cast<UI_MacroVariant*>(&from);
    const VariantValueType sourceType = from.m_Type;
    if (sourceType < vvtString || sourceType > vvtBoolean || from.IsMacroEval() || from.m_IsProxy)
        rv = temp.derefObject(src).GetRVal();
    UI_MacroVariant* t = writeTarget();
    if (t->isConstant() || (rv && !t->m_IsProxy && rv == t->GetRVal()))
        return;
    if (rv && takeScalar(*t, *rv))
        return;
    UI_MacroVariant value;
    if (rv)
        value.copyFrom(*rv);
    else
        value.SetLValueVal(nullptr);
    if (value.m_Type == vvtArray)
        MacroVariantArraySupport::SeparateBuffers(value);
    if (t->m_Role != Role::Variable) // an element, or a value of the host
        t->Assign(value);
    else if (t->holdsShapedArray())
        t->UI_MacroVariant::operator=(value);
    else
        t->Take(value);
}

void UI_MacroVariantParam::SetObjectRef(const UI_MacroVariant& src) {
    if (m_Constant)
        return;
    UI_MacroVariant* t = writeTarget();
    if (t->isConstant()) {
        Fail("Object cannot be referenced");
        return;
    }
    if (&src == t || src.getRefVal() == t) {
        Fail(errSetToItself);
        return;
    }
    if (t->m_Role != Role::Variable) {
        t->SetObjectRef(src);
        return;
    }
    if (t->holdsShapedArray()) {
        Fail(errArrayAssignment);
        return;
    }
    UI_MacroVariant value = src.IsMacroEval() ? UI_MacroVariant(const_cast<UI_MacroVariant*>(&src))
                                              : UI_MacroVariant(src);
    t->Take(value);
}

void UI_MacroVariantParam::SetConstant(bool constant) { m_Constant = constant; }

bool UI_MacroVariantParam::isConstant() const { return m_Constant; }

UI_MacroVariant* UI_MacroVariantParam::GetLVal() const {
    return m_Constant ? nullptr : UI_MacroVariant::GetLVal();
}

UI_MacroVariant* UI_MacroVariantParam::GetRVal() const {
    if (m_Constant)
        return m_Type == vvtReference && !m_Target ? nullptr
                                                   : const_cast<UI_MacroVariantParam*>(this);
    return UI_MacroVariant::GetRVal();
}
