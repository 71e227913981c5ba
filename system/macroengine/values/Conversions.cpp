// From values to types of the host. The public conversions first read an object through its
// default member; the private ones look at the kind and at nothing else.

#include <SCC_Variant.h>
#include <SCL_Assert.h>
#include <UI_MacroVariant.h>

#include <cstdint>

#include "values/Failure.h"
#include "values/FastPath.h"
#include "values/NumberText.h"

namespace {

int low32(const UI_MacroVariant& value) { return static_cast<int>(value.GetIntVal()); }

void* handleOf(__int64 bits) {
    return reinterpret_cast<void*>(static_cast<std::intptr_t>(static_cast<std::int32_t>(bits)));
}

SYS_String handleText(int bits) {
    SYS_String text("0x");
    text.Add(static_cast<unsigned long long>(bits), 16);
    return text;
}

void assertNoPendingCall(const UI_MacroVariant& object) {
    SCL_ASSERT(object.GetWFlags() == 0, "A pending call is converted as an object");
}

} // namespace

UI_MacroVariant* readTarget(const UI_MacroVariant& reference) {
    if (!SCL_ASSERT(reference.getRefVal() != &reference, "A reference to itself"))
        return nullptr;
    UI_MacroVariant* body = reference.getBody();
    if (body && body->GetRole() != UI_MacroVariant::Role::Variable)
        body->InitRVal();
    return body;
}

namespace {

/// A default member may yield an object that yields itself: the reading of one ends in an error
/// and not in the native stack.
class ReadDepth {
public:
    ReadDepth() { ++s_Depth; }
    ReadDepth(const ReadDepth&) = delete;
    ReadDepth& operator=(const ReadDepth&) = delete;
    ~ReadDepth() { --s_Depth; }

    static constexpr int kDeepest = 100;
    bool IsTooDeep() const {
        if (s_Depth <= kDeepest)
            return false;
        Fail(errIllegalNesting);
        return true;
    }

private:
    static inline int s_Depth = 0;
};

/// What the target of a Reference converts to; nothing, or 0, if it has gone.
template <class Host> Host readThrough(const UI_MacroVariant& reference) {
    const ReadDepth depth;
    const UI_MacroVariant* target = depth.IsTooDeep() ? nullptr : readTarget(reference);
    return target ? static_cast<Host>(*target) : Host();
}

} // namespace

UI_MacroVariant::operator __int64() const {
    if (const UI_MacroVariant* scalar = readScalar(*this))
        return scalar->convToLongLong();
    UI_MacroVariant temp;
    return temp.derefObject(*this).convToLongLong();
}

UI_MacroVariant::operator int() const { return static_cast<int>(static_cast<__int64>(*this)); }

UI_MacroVariant::operator long() const { return static_cast<int>(static_cast<__int64>(*this)); }

UI_MacroVariant::operator bool() const { return static_cast<__int64>(*this) != 0; }

UI_MacroVariant::operator double() const {
    if (const UI_MacroVariant* scalar = readScalar(*this))
        return scalar->convToDouble();
    UI_MacroVariant temp;
    return temp.derefObject(*this).convToDouble();
}

UI_MacroVariant::operator SYS_String() const {
    if (const UI_MacroVariant* scalar = readScalar(*this))
        return scalar->convToString();
    UI_MacroVariant temp;
    return temp.derefObject(*this).convToString();
}

void* UI_MacroVariant::ToHandle() const {
    UI_MacroVariant temp;
    return temp.derefObject(*this).convToHandle();
}

bool UI_MacroVariant::convToBool() const { return convToLongLong() != 0; }

SYS_String UI_MacroVariant::ToString() const {
    if (m_Type == vvtReference)
        readTarget(*this);
    const UI_MacroVariant* value = GetRVal();
    return value && value->m_Type == vvtString ? static_cast<SYS_String>(*value) : SYS_String();
}

int UI_MacroVariant::ToInt(int fallback) const {
    if (m_Type == vvtReference)
        readTarget(*this);
    const UI_MacroVariant* value = GetRVal();
    if (!value || value->m_Type == vvtEmpty || value->m_Type == vvtMissing)
        return fallback;
    return static_cast<int>(*value);
}

SYS_String UI_MacroVariant::convToString() const {
    const UI_MacroVariant& value = liveElement(*this);
    switch (value.m_Type) {
    case vvtString:
    case vvtScript:
        return value.m_Text;
    case vvtInteger:
        return MacroIntegerText(value.m_Payload.integer);
    case vvtDouble:
        return MacroRealText(value.m_Payload.real);
    case vvtBoolean:
        return value.m_Payload.integer ? "True" : "False";
    case vvtReference:
        return readThrough<SYS_String>(value);
    case vvtHandle:
        return handleText(low32(value));
    case vvtObject:
        assertNoPendingCall(value);
        return SYS_String();
    case vvtEmpty:
    case vvtFunction:
    case vvtArray:
    case vvtMissing:
    case vvtUnknown:
        return SYS_String();
    }
    return SYS_String();
}

__int64 UI_MacroVariant::convToLongLong() const {
    const UI_MacroVariant& value = liveElement(*this);
    switch (value.m_Type) {
    case vvtInteger:
    case vvtBoolean:
        return value.m_Payload.integer;
    case vvtDouble:
        return MacroRoundReal(value.m_Payload.real);
    case vvtString:
        return MacroIntegerValue(value.m_Text);
    case vvtReference:
        return readThrough<__int64>(value);
    case vvtHandle:
        return low32(value);
    case vvtObject:
        assertNoPendingCall(value);
        return 0;
    case vvtEmpty:
    case vvtUnknown:
        return 0;
    case vvtFunction:
    case vvtArray:
    case vvtMissing:
    case vvtScript:
        break;
    }
    Fail(errInvalidType);
    return 0;
}

double UI_MacroVariant::convToDouble() const {
    const UI_MacroVariant& value = liveElement(*this);
    switch (value.m_Type) {
    case vvtDouble:
        return value.m_Payload.real;
    case vvtInteger:
    case vvtBoolean:
        return static_cast<double>(value.m_Payload.integer);
    case vvtString:
        return MacroRealValue(value.m_Text);
    case vvtReference:
        return readThrough<double>(value);
    case vvtHandle:
        return low32(value);
    case vvtObject:
        assertNoPendingCall(value);
        return 0.0;
    case vvtEmpty:
    case vvtUnknown:
        return 0.0;
    case vvtFunction:
    case vvtArray:
    case vvtMissing:
    case vvtScript:
        break;
    }
    Fail(errInvalidType);
    return 0.0;
}

void* UI_MacroVariant::convToHandle() const {
    const UI_MacroVariant& value = liveElement(*this);
    switch (value.m_Type) {
    case vvtObject:
        assertNoPendingCall(value);
        return value.m_Payload.dispatch;
    case vvtString:
        return handleOf(value.m_Text.Value(static_cast<unsigned*>(nullptr), nullptr, 16));
    case vvtInteger:
    case vvtBoolean:
    case vvtHandle:
        return handleOf(value.m_Payload.integer);
    case vvtDouble:
        return handleOf(MacroTruncateReal(value.m_Payload.real));
    case vvtReference: {
        const ReadDepth depth;
        const UI_MacroVariant* target = depth.IsTooDeep() ? nullptr : readTarget(value);
        return target ? target->ToHandle() : nullptr;
    }
    case vvtUnknown:
        return nullptr;
    case vvtEmpty:
    case vvtFunction:
    case vvtArray:
    case vvtMissing:
    case vvtScript:
        break;
    }
    Fail(errInvalidType);
    return nullptr;
}

UI_MacroVariant::operator SCC_Variant() const {
    const UI_MacroVariant& value = liveElement(*this);
    SCC_Variant result;
    switch (value.m_Type) {
    case vvtString:
    case vvtScript:
        result = static_cast<SYS_String>(value);
        break;
    case vvtInteger:
        result = static_cast<int>(value);
        break;
    case vvtDouble:
        result = static_cast<double>(value);
        break;
    case vvtBoolean:
        result = static_cast<bool>(value);
        break;
    case vvtHandle:
        result = static_cast<const void*>(value.GetHandle());
        break;
    case vvtReference:
        if (const UI_MacroVariant* target = readTarget(value))
            result = target->operator SCC_Variant();
        break;
    case vvtEmpty:
    case vvtObject:
    case vvtFunction:
    case vvtArray:
    case vvtMissing:
    case vvtUnknown:
        break;
    }
    return result;
}

void UI_MacroVariant::SetVariantVal(const SCC_Variant& value) {
    switch (value.GetType()) {
    case 2:
        SetIntVal(static_cast<__int64>(value));
        break;
    case 3:
        SetRealVal(static_cast<double>(value));
        break;
    case 4:
        SetStringVal(static_cast<SYS_String>(value));
        break;
    default: // the foundation's other tags have no counterpart here
        break;
    }
}
