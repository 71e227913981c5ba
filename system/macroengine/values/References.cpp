// How a value stands for another one, and how a write finds its real target.

#include <Automation.h>
#include <SCL_Assert.h>
#include <SCL_StaticAlloc.h>
#include <UI_MacroEval.h>
#include <UI_MacroVariant.h>

#include "values/CopyOut.h"
#include "values/Failure.h"
#include "values/Parts.h"

namespace {

const char* const kNoSuchProperty = "Object doesn't support this property or method";

const ScriptDebugger::iMethod* defaultMember(const UI_MacroVariant& object) {
    if (!object.IsMacroEval())
        return nullptr;
    const ScriptDebugger::iApplicationClass* descriptor = object.GetMacroDescriptor();
    return descriptor ? descriptor->GetDefaultPropertyOrMethod() : nullptr;
}

} // namespace

UI_MacroVariant CopyOut(UI_MacroVariant* value) {
    if (!value)
        return UI_MacroVariant(static_cast<UI_MacroVariant*>(nullptr));
    if (value->IsMacroEval())
        return UI_MacroVariant(value);
    return UI_MacroVariant(*value);
}

bool LeadsToConstant(const UI_MacroVariant& value) {
    for (const UI_MacroVariant* v = &value; v; v = v->getRefVal()) {
        if (v->isConstant())
            return true;
        if (v->GetType() != vvtReference)
            return false;
    }
    return false;
}

// --- UI_MacroVariant -----------------------------------------------------------------------

UI_MacroVariant* UI_MacroVariant::getBody() const {
    const UI_MacroVariant* value = this;
    for (;;) {
        if (value->m_Role == Role::Element) {
            const auto* item = static_cast<const UI_MacroVariantItemRef*>(value);
            if (item->GetElement())
                value = item->GetElement();
        }
        if (value->m_IsProxy)
            value->GetRVal(); // reads the property if nobody has yet
        if (value->m_Type != vvtReference)
            return const_cast<UI_MacroVariant*>(value);
        value = value->m_Target;
        if (!value)
            return nullptr;
    }
}

UI_MacroVariant* UI_MacroVariant::getObject(bool allowUnknown) const {
    UI_MacroVariant* body = getBody();
    if (!body)
        return nullptr;
    if (body->IsMacroEval())
        return body;
    switch (body->m_Type) {
    case vvtObject:
    case vvtFunction:
        return body;
    case vvtUnknown:
        return allowUnknown ? body : nullptr;
    case vvtEmpty:
    case vvtString:
    case vvtInteger:
    case vvtDouble:
    case vvtBoolean:
    case vvtReference:
    case vvtArray:
    case vvtMissing:
    case vvtHandle:
    case vvtScript:
        return nullptr;
    }
    return nullptr;
}

UI_MacroVariant* UI_MacroVariant::GetRVal() const {
    if (m_Type != vvtReference)
        return const_cast<UI_MacroVariant*>(this);
    const UI_MacroVariant* target = m_Target;
    return target ? target->GetRVal() : nullptr;
}

UI_MacroVariant* UI_MacroVariant::GetLVal() const {
    if (m_Type != vvtReference)
        return const_cast<UI_MacroVariant*>(this);
    UI_MacroVariant* target = m_Target;
    if (!target)
        return nullptr;
    if (UI_MacroVariant* value = target->GetLVal())
        return value;
    return target->m_Type == vvtReference ? target : const_cast<UI_MacroVariant*>(this);
}

void UI_MacroVariant::InitRVal() {
    // A chain of plain References is followed here and not by calls, however long it is.
    UI_MacroVariant* value = this;
    while (value && value->m_Type == vvtReference && value->m_Role != Role::Element &&
           !value->m_IsProxy)
        value = value->m_Target;
    if (value && value != this && value->m_Role != Role::Variable)
        value->InitRVal();
}

void UI_MacroVariant::copyFrom(const UI_MacroVariant& src) {
    m_Type = src.m_Type;
    switch (src.m_Type) {
    case vvtObject:
        m_FlagsOrDims = src.m_FlagsOrDims;
        m_IdOrArrayType = src.m_IdOrArrayType;
        m_Payload = src.m_Payload;
        setCounted(src.m_Payload.dispatch);
        if (GetWFlags() != 0 && src.m_Parts)
            parts().array = src.m_Parts->array;
        break;
    case vvtFunction:
        m_Payload = src.m_Payload;
        m_Text = src.m_Text;
        m_Target = src.m_Target;
        if (src.m_Parts)
            parts().array = src.m_Parts->array;
        break;
    case vvtString:
    case vvtScript:
        m_Text = src.m_Text;
        break;
    case vvtInteger:
    case vvtDouble:
    case vvtBoolean:
    case vvtHandle:
        m_Payload = src.m_Payload;
        break;
    case vvtReference:
        SCL_ASSERT(src.m_Target != this, "UI_MacroVariant: a value cannot refer to itself");
        if (src.m_Target != this)
            m_Target = src.m_Target;
        break;
    case vvtArray:
        m_FlagsOrDims = src.m_FlagsOrDims;
        m_IdOrArrayType = ArrayValue;
        if (src.m_Parts)
            parts().array = src.m_Parts->array;
        break;
    case vvtUnknown:
        setCounted(src.GetUnknownVal());
        break;
    case vvtEmpty:
    case vvtMissing:
        break;
    }
}

UI_MacroVariant& UI_MacroVariant::operator=(const UI_MacroVariant& src) {
    if (&src == this)
        return *this;
    if (m_Type == vvtArray && m_IdOrArrayType != ArrayValue) {
        if (m_IdOrArrayType != ArrayDynamic || src.m_Type != vvtArray) {
            Fail(errArrayAssignment);
            return *this;
        }
        m_FlagsOrDims = src.m_FlagsOrDims;
        UI_MacroArray copy = src.Arrval();
        copy[copy.GetLowerBound()]; // makes the buffer this value's own
        parts().array = std::move(copy);
        return *this;
    }
    if (hasRest()) {
        UI_MacroVariant keep(src); // what is overwritten may own the source
        Clear();
        moveFrom(keep);
        return *this;
    }
    m_FlagsOrDims = 0;
    m_IdOrArrayType = 0;
    m_Payload.integer = 0;
    copyFrom(src);
    return *this;
}

void UI_MacroVariant::Assign(const UI_MacroVariant& src) {
    if (m_Type == vvtReference && m_Target && m_Target->m_IsProxy) {
        m_Target->Assign(src);
        return;
    }
    UI_MacroVariant* lv = GetRVal();
    UI_MacroVariant* rv = src.GetRVal();
    if (lv == rv && lv)
        return;
    UI_MacroVariant temp;
    if (!rv) {
        temp.SetLValueVal(nullptr);
    } else {
        SCL_ASSERT(rv->m_Type != vvtObject || rv->GetWFlags() == 0,
                   "UI_MacroVariant::Assign: the source is a pending call");
        temp.copyFrom(*rv);
        if (temp.m_Type == vvtArray)
            MacroVariantArraySupport::SeparateBuffers(temp);
    }
    if (!lv) { // this value holds Null: it takes the value itself
        Clear();
        *this = temp;
        return;
    }
    if (defaultMember(*lv)) {
        Fail(kNoSuchProperty);
        return;
    }
    if (lv->m_Type == vvtObject) {
        if (GetWFlags() != 0 && m_Type == vvtObject)
            lv->putObjectVal(temp, false);
        else
            Fail(kNoSuchProperty);
        return;
    }
    *lv = temp;
}

void UI_MacroVariant::SetObjectRef(const UI_MacroVariant& src) {
    if (m_Type == vvtReference && m_Target && m_Target->m_IsProxy) {
        m_Target->SetObjectRef(src);
        return;
    }
    UI_MacroVariant* target = GetLVal();
    if (!target || LeadsToConstant(*this)) {
        Fail("Object cannot be referenced");
        return;
    }
    if (&src == target) {
        Fail(errSetToItself);
        return;
    }
    if (defaultMember(*target)) {
        Fail(kNoSuchProperty);
        return;
    }
    if (target->m_Type == vvtObject) {
        if (GetWFlags() != 0 && m_Type == vvtObject)
            target->putObjectVal(src, true);
        else
            Fail(kNoSuchProperty);
        return;
    }
    if (src.IsMacroEval())
        *target = UI_MacroVariant(const_cast<UI_MacroVariant*>(&src));
    else
        *target = src;
}

const UI_MacroVariant& UI_MacroVariant::derefObject(const UI_MacroVariant& source) {
    if (!const_cast<UI_MacroVariant&>(source).evaluateDereference(nullptr, 0, *this, derefAny))
        return source;
    UI_MacroVariant result = Evaluate(nullptr, nullptr, 0);
    Take(result);
    return *this;
}

const UI_MacroVariant& UI_MacroVariant::derefThis() {
    UI_MacroVariant result;
    if (evaluateDereference(nullptr, 0, result, derefAny))
        *this = result.Evaluate(nullptr, nullptr, 0);
    return *this;
}

bool UI_MacroVariant::evaluateDereference(UI_MacroVariant* args, int argc, UI_MacroVariant& out,
                                          EDerefFlag flag) {
    UI_MacroVariant* body = getBody();
    if (!body)
        return false;
    if (body->IsMacroEval()) {
        const ScriptDebugger::iMethod* member = defaultMember(*body);
        if (member) {
            if (flag != derefAny) {
                const bool isProperty =
                    dynamic_cast<const ScriptDebugger::iProperty*>(member) != nullptr;
                if (isProperty != (flag == derefPropertyGet))
                    return false;
            }
            const SYS_String name = member->GetName();
            UI_MacroVariant result = body->Evaluate(name, args, argc);
            out = result;
            return true;
        }
    }
    switch (body->m_Type) {
    case vvtObject:
        if (!body->m_Payload.dispatch)
            return false;
        if (body->GetWFlags() != 0 && argc == 0) { // a pending member is read as it is
            out = *body;
            return true;
        }
        out = *body;
        out.invokeObjectIfNeeded();
        if (body->GetWFlags() != 0)
            return out.evaluateDereference(args, argc, out, flag);
        out.m_IdOrArrayType = 0;
        out.m_FlagsOrDims = flag == derefPropertyGet ? DISPATCH_PROPERTYGET
                            : flag == derefMethod    ? DISPATCH_METHOD
                                                     : DISPATCH_METHOD | DISPATCH_PROPERTYGET;
        out.copyAgr(args, argc);
        return true;
    case vvtFunction:
        if (flag == derefPropertyGet)
            return false;
        out = *body;
        if (args)
            out.copyAgr(args, argc);
        return true;
    case vvtArray:
        if (argc < 1)
            return false;
        {
            UI_MacroVariant element = EvaluateArray(body, args, argc);
            out = element;
        }
        return true;
    case vvtEmpty:
    case vvtString:
    case vvtInteger:
    case vvtDouble:
    case vvtBoolean:
    case vvtReference:
    case vvtMissing:
    case vvtHandle:
    case vvtScript:
    case vvtUnknown:
        return false;
    }
    return false;
}

bool UI_MacroVariant::IsObjectSame(UI_MacroVariant& other) {
    UI_MacroVariant* a = getObject(true);
    UI_MacroVariant* b = other.getObject(true);
    if (!a || !b)
        return false;
    if (a->IsMacroEval() || b->IsMacroEval())
        return a == b;
    if (a->m_Type == vvtFunction || b->m_Type == vvtFunction)
        return a == b;
    IUnknown* left = a->m_Type == vvtObject ? a->m_Payload.dispatch : a->GetUnknownVal();
    IUnknown* right = b->m_Type == vvtObject ? b->m_Payload.dispatch : b->GetUnknownVal();
    if (left == right || !left || !right)
        return left == right;
    void* first = nullptr;
    void* second = nullptr;
    if (left->QueryInterface(IID_IUnknown, &first) == S_OK && first)
        static_cast<IUnknown*>(first)->Release();
    if (right->QueryInterface(IID_IUnknown, &second) == S_OK && second)
        static_cast<IUnknown*>(second)->Release();
    return first && first == second;
}

// --- UI_MacroVariantParam ------------------------------------------------------------------

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
        if (!next || next->m_Role != Role::Variable || next == this)
            break;
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

void UI_MacroVariantParam::Assign(const UI_MacroVariant& src) {
    if (m_Constant)
        return;
    UI_MacroVariant* t = writeTarget();
    if (t->isConstant())
        return;
    UI_MacroVariant temp;
    UI_MacroVariant* rv;
    const VariantValueType sourceType = src.m_Type;
    if (sourceType >= vvtString && sourceType <= vvtBoolean && !src.IsMacroEval()) {
        rv = const_cast<UI_MacroVariant*>(&src);
    } else {
        const UI_MacroVariant& read = temp.derefObject(src);
        rv = read.GetRVal();
    }
    if (rv && rv == t->GetRVal())
        return;
    const bool isVariable = t->m_Role == Role::Variable;
    if (isVariable && rv && rv->m_Type >= vvtString && rv->m_Type <= vvtBoolean && !t->m_Parts &&
        !t->m_Target.IsSet()) {
        if (rv->m_Type == vvtString) {
            t->m_Text = rv->m_Text;
            t->m_Payload.integer = 0;
        } else {
            if (!t->m_Text.IsEmpty())
                t->m_Text.Clear();
            t->m_Payload = rv->m_Payload;
        }
        t->m_FlagsOrDims = 0;
        t->m_IdOrArrayType = 0;
        t->m_Type = rv->m_Type;
        return;
    }
    UI_MacroVariant value;
    if (rv)
        value.copyFrom(*rv);
    else
        value.SetLValueVal(nullptr);
    if (value.m_Type == vvtArray)
        MacroVariantArraySupport::SeparateBuffers(value);
    if (!isVariable) // an element, or a value of the host
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
    if (&src == t) {
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

// --- UI_MacroVariantItemRef ----------------------------------------------------------------

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

UI_MacroVariantItemRef& UI_MacroVariantItemRef::operator=(const UI_MacroVariant& src) {
    if (UI_MacroVariant* element = m_Element)
        *element = src;
    UI_MacroVariant::operator=(src);
    return *this;
}

void UI_MacroVariantItemRef::Assign(const UI_MacroVariant& src) {
    UI_MacroVariant* element = m_Element;
    if (!element) {
        UI_MacroVariant::Assign(src);
        return;
    }
    UI_MacroVariant temp;
    UI_MacroVariant value;
    if (UI_MacroVariant* rv = temp.derefObject(src).GetRVal()) {
        if (rv == element)
            return;
        value.copyFrom(*rv);
    } else {
        value.SetLValueVal(nullptr);
    }
    if ((element->m_Type == vvtObject && element->GetWFlags() == 0) ||
        element->m_Type == vvtReference)
        element->Clear();
    element->Assign(value);
    if (m_Element) {
        Clear();
        UI_MacroVariant::operator=(*m_Element.Get());
    }
}

void UI_MacroVariantItemRef::SetObjectRef(const UI_MacroVariant& src) {
    UI_MacroVariant* element = m_Element;
    if (!element) {
        UI_MacroVariant::SetObjectRef(src);
        return;
    }
    if (&src == element) {
        Fail(errSetToItself);
        return;
    }
    UI_MacroVariant value = src.IsMacroEval() ? UI_MacroVariant(const_cast<UI_MacroVariant*>(&src))
                                              : UI_MacroVariant(src);
    if ((element->m_Type == vvtObject && element->GetWFlags() == 0) ||
        element->m_Type == vvtReference)
        element->Clear();
    element->SetObjectRef(value);
    if (m_Element) {
        Clear();
        UI_MacroVariant::operator=(*m_Element.Get());
    }
}

void UI_MacroVariantItemRef::InitRVal() {
    UI_MacroVariant* element = m_Element;
    if (!element) {
        UI_MacroVariant::InitRVal();
        return;
    }
    element->InitRVal();
    if (m_Element) {
        Clear();
        UI_MacroVariant::operator=(*m_Element.Get());
    }
}

UI_MacroVariant* UI_MacroVariantItemRef::GetRVal() const {
    UI_MacroVariant* element = m_Element;
    return element ? element->GetRVal() : UI_MacroVariant::GetRVal();
}
