// How a value stands for another one, and how a write finds its real target.

#include <Automation.h>
#include <SCL_Assert.h>
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
        if (value->m_IsProxy) {
            // Reading the property, if nobody has yet, runs host code that may let go of it.
            const SCC_SafePointer<UI_MacroVariant> alive(const_cast<UI_MacroVariant*>(value));
            value->GetRVal();
            if (!alive || value->GetLockCount() == 1)
                return nullptr;
        }
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
        // What is overwritten may own the source, and its end may run host code: it goes last.
        UI_MacroVariant keep(src);
        UI_MacroVariant old;
        old.moveFrom(*this);
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
        if (LeadsToConstant(*this))
            return;
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
    if (&src == target || src.getRefVal() == target) {
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

/// Element references on the way to an array let go of their copies of it: while they share the
/// buffer, writing one element would copy them all.
void UI_MacroVariant::dropElementCopies() {
    for (UI_MacroVariant* value = this; value; value = value->m_Target) {
        if (value->m_Role == Role::Element && value->m_Type == vvtArray &&
            static_cast<UI_MacroVariantItemRef*>(value)->GetElement())
            value->Clear();
        if (value->m_Type != vvtReference)
            return;
    }
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
        if (body->GetWFlags() != 0) { // its result is what the arguments apply to
            UI_MacroVariant result(*body);
            result.invokeObjectIfNeeded();
            return result.evaluateDereference(args, argc, out, flag);
        }
        out = *body;
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
        dropElementCopies();
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
    const auto isAutomation = [](const UI_MacroVariant& value) {
        return value.m_Type == vvtObject || value.m_Type == vvtUnknown;
    };
    if (a == b || !isAutomation(*a) || !isAutomation(*b))
        return a == b;
    // Also the one that a name of the host stands for.
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
