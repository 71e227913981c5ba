// Values to automation data and back. Arrays may nest: those that are met on the way wait on a
// list, so that no depth of nesting uses the native stack.

#include <AutomationFace.h>
#include <SCL_Assert.h>
#include <UI_MacroEval.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#include "values/Access.h"
#include "values/ArrayLimits.h"
#include "values/ArrayWalk.h"
#include "values/Bridge.h"
#include "values/Failure.h"

namespace {

// --- from automation -------------------------------------------------------------------------

/// A host's object that comes back is itself again.
void readDispatch(IDispatch* object, UI_MacroVariant& target) {
    MacroEval* own = nullptr;
    if (IsExposedObject(object, own))
        target.SetLValueVal(own);
    else if (object)
        target.SetObjectVal(object, true);
}

void readObject(IUnknown* object, UI_MacroVariant& target) {
    if (!object)
        return;
    if (Counted<IDispatch> dispatch = QueryFor<IDispatch>(object, IID_IDispatch))
        readDispatch(dispatch.Get(), target);
    else
        target.SetUnknownObjectVal(object);
}

void readSingle(const VARIANT& source, UI_MacroVariant& target) {
    switch (source.vt) {
    case VT_I2:
        target.SetIntVal(source.iVal);
        break;
    case VT_I4:
        target.SetIntVal(source.lVal);
        break;
    case VT_I8:
        target.SetIntVal(source.llVal);
        break;
    case VT_R4:
        target.SetRealVal(source.fltVal);
        break;
    case VT_R8:
        target.SetRealVal(source.dblVal);
        break;
    case VT_BSTR:
        target.SetStringVal(automation::TextOf(source.bstrVal));
        break;
    case VT_DISPATCH:
        readDispatch(source.pdispVal, target);
        break;
    case VT_BOOL:
        target.SetBoolVal(source.boolVal != 0);
        break;
    case VT_UNKNOWN:
        readObject(source.punkVal, target);
        break;
    case VT_UI8: // handles have 32 bits
        target.SetHandleVal(reinterpret_cast<void*>(
            static_cast<std::uintptr_t>(static_cast<std::uint32_t>(source.ullVal))));
        break;
    default:
        break;
    }
}

/// A locked copy: asking elements for their interfaces runs code that may change the original.
class OwnArray {
public:
    explicit OwnArray(SAFEARRAY* original) {
        if (SUCCEEDED(SafeArrayCopy(original, &m_Array)) && m_Array)
            SafeArrayLock(m_Array);
    }
    OwnArray(const OwnArray&) = delete;
    OwnArray& operator=(const OwnArray&) = delete;
    ~OwnArray() {
        if (!m_Array)
            return;
        SafeArrayUnlock(m_Array);
        SafeArrayDestroy(m_Array);
    }

    SAFEARRAY* Get() const { return m_Array; }

private:
    SAFEARRAY* m_Array = nullptr;
};

class ArrayReader {
public:
    void Read(const VARIANT& source, UI_MacroVariant& target) {
        open(source, target, nullptr, 1);
        while (!m_Waiting.empty()) {
            const Waiting next = std::move(m_Waiting.back());
            m_Waiting.pop_back();
            fill(next);
        }
    }

private:
    struct Waiting {
        SAFEARRAY* array;
        std::shared_ptr<OwnArray> owner; // of this array, or of the one that it is nested in
        UI_MacroVariant* target;
        int depth;
    };

    static bool isReadable(VARTYPE type) {
        switch (type) {
        case VT_I2:
        case VT_I4:
        case VT_R4:
        case VT_R8:
        case VT_BSTR:
        case VT_DISPATCH:
        case VT_VARIANT:
        case VT_UNKNOWN:
            return true;
        default:
            return false;
        }
    }

    void open(const VARIANT& source, UI_MacroVariant& target,
              const std::shared_ptr<OwnArray>& around, int depth) {
        const bool byReference = (source.vt & VT_BYREF) != 0;
        if (byReference && !source.pparray)
            return;
        SAFEARRAY* array = byReference ? *source.pparray : source.parray;
        VARTYPE type = VT_EMPTY;
        if (!array || FAILED(SafeArrayGetVartype(array, &type)) || !isReadable(type))
            return;
        if (depth > MaxArrayNesting) {
            Fail(errIllegalNesting);
            return;
        }
        if (around && !byReference) {
            m_Waiting.push_back({array, around, &target, depth});
            return;
        }
        auto copy = std::make_shared<OwnArray>(array);
        if (copy->Get())
            m_Waiting.push_back({copy->Get(), copy, &target, depth});
        else
            FailOutOfMemory();
    }

    /// Gives the target the array's shape; false if it has too many elements.
    bool shape(SAFEARRAY* array, UI_MacroVariant& target) {
        const UINT dims = SafeArrayGetDim(array);
        std::vector<_ArraySubscript> levels(dims);
        __int64 count = 1;
        for (UINT dimension = 1; dimension <= dims; ++dimension) {
            _ArraySubscript& level = levels[dims - dimension]; // the outermost level is the last
            SafeArrayGetLBound(array, dimension, &level.lower);
            SafeArrayGetUBound(array, dimension, &level.upper);
            count *= static_cast<__int64>(level.upper) - level.lower + 1;
            if (!MacroArrayFits(m_Total + count))
                return false;
        }
        m_Total += count;
        MacroVariantAccess::MakeArray(target, levels.data(), static_cast<int>(dims));
        return true;
    }

    void fill(const Waiting& item) {
        if (!shape(item.array, *item.target))
            return;
        VARTYPE type = VT_EMPTY;
        SafeArrayGetVartype(item.array, &type);
        const UINT size = SafeArrayGetElemsize(item.array);
        const char* data = static_cast<const char*>(item.array->pvData);
        std::vector<long> place(SafeArrayGetDim(item.array));
        item.target->resetMultiArrayInx(place.data());
        while (UI_MacroVariant* element = item.target->nextMultiArrayVal(place.data())) {
            VARIANT value{};
            value.vt = type;
            if (type == VT_VARIANT)
                std::memcpy(&value, data, sizeof value);
            else
                std::memcpy(&value.llVal, data, size);
            data += size;
            if ((value.vt & VT_ARRAY) != 0)
                open(value, *element, item.owner, item.depth + 1);
            else
                readSingle(value, *element);
        }
    }

    std::vector<Waiting> m_Waiting;
    __int64 m_Total = 0;
};

// --- to automation ---------------------------------------------------------------------------

void writeInteger(__int64 number, VARIANT& out) {
    out.vt = number == static_cast<LONG>(number) ? VT_I4 : VT_I8;
    if (out.vt == VT_I4)
        out.lVal = static_cast<LONG>(number);
    else
        out.llVal = number;
}

void writeText(const SYS_String& text, VARIANT& out) {
    out.bstrVal = automation::NewText(text);
    if (out.bstrVal)
        out.vt = VT_BSTR;
    else
        FailOutOfMemory();
}

void writeObject(IDispatch* object, VARIANT& out) {
    if (!object)
        return;
    object->AddRef();
    out.pdispVal = object;
    out.vt = VT_DISPATCH;
}

/// An object of the host leaves with its face, unless it is a value in the shape of an object.
bool writeHostObject(const UI_MacroVariant& object, VARIANT& out) {
    if (Counted<IDispatch> face = FaceOf(object)) {
        writeObject(face.Get(), out);
        return true;
    }
    if (!object.IsEmpty() || dynamic_cast<const UI_MacroProperty*>(&object))
        return false;
    out.pdispVal =
        ExposeToAutomation(static_cast<MacroEval&>(const_cast<UI_MacroVariant&>(object)));
    out.vt = VT_DISPATCH;
    return true;
}

void writeUnknown(IUnknown* object, VARIANT& out) {
    if (object)
        object->AddRef();
    out.punkVal = object;
    out.vt = VT_UNKNOWN;
}

const UI_MacroVariant* readBody(const UI_MacroVariant& value) {
    UI_MacroVariant* body = value.getBody();
    if (body && value.GetType() == vvtReference &&
        body->GetRole() != UI_MacroVariant::Role::Variable)
        body->InitRVal();
    return body;
}

class VariantWriter {
public:
    COleVariant Write(const UI_MacroVariant& value) {
        COleVariant result;
        write(value, result, 1);
        while (!m_Waiting.empty()) {
            const Waiting next = std::move(m_Waiting.back());
            m_Waiting.pop_back();
            fill(next);
        }
        return result;
    }

private:
    struct Waiting {
        UI_MacroVariant array; // shares the elements
        VARIANT* out;          // empty, and owned by what is being made
        int depth;
    };

    void write(const UI_MacroVariant& value, VARIANT& out, int depth) {
        const UI_MacroVariant* body = readBody(value);
        if (!body)
            return;
        UI_MacroVariant read;
        if (body->GetType() == vvtObject && body->GetWFlags() != 0) {
            read = *body;
            MacroVariantAccess::Invoke(read);
            body = &read;
        } else if (body->IsMacroEval() && body->GetType() != vvtObject &&
                   writeHostObject(*body, out)) {
            return;
        }
        switch (body->GetType()) {
        case vvtObject:
            writeObject(body->GetDispatchVal(), out);
            break;
        case vvtString:
            writeText(body->GetStringVal(), out);
            break;
        case vvtScript:
            writeText(body->GetExecScriptVal(), out);
            break;
        case vvtInteger:
            writeInteger(body->GetIntVal(), out);
            break;
        case vvtDouble:
            out.vt = VT_R8;
            out.dblVal = MacroVariantAccess::Real(*body);
            break;
        case vvtBoolean:
            out.vt = VT_BOOL;
            out.boolVal = body->GetIntVal() != 0 ? VARIANT_TRUE : VARIANT_FALSE;
            break;
        case vvtHandle:
            out.vt = VT_UI8;
            out.ullVal = static_cast<ULONGLONG>(body->GetIntVal());
            break;
        case vvtUnknown:
            writeUnknown(body->GetUnknownVal(), out);
            break;
        case vvtArray:
            if (depth > MaxArrayNesting)
                Fail(errIllegalNesting);
            else
                m_Waiting.push_back({UI_MacroVariant(*body), &out, depth});
            break;
        case vvtEmpty:
        case vvtFunction:
        case vvtReference:
        case vvtMissing:
            break;
        }
    }

    /// Makes the empty array in the place where it belongs; null if it has too many elements.
    SAFEARRAY* make(const Waiting& item, const std::vector<SAFEARRAYBOUND>& bounds) {
        __int64 count = 1;
        for (const SAFEARRAYBOUND& bound : bounds) {
            count *= bound.cElements;
            if (!MacroArrayFits(m_Total + count))
                return nullptr;
        }
        m_Total += count;
        SAFEARRAY* made =
            SafeArrayCreate(VT_VARIANT, static_cast<UINT>(bounds.size()), bounds.data());
        if (!made) {
            FailOutOfMemory();
            return nullptr;
        }
        item.out->vt = VT_ARRAY | VT_VARIANT;
        item.out->parray = made;
        return made;
    }

    void fill(const Waiting& item) {
        const int dims = item.array.GetArrNumDims();
        std::vector<SAFEARRAYBOUND> bounds(1); // an array without dimensions has no elements
        if (dims > 0)
            bounds.resize(static_cast<std::size_t>(dims));
        for (int dimension = 1; dimension <= dims; ++dimension)
            bounds[static_cast<std::size_t>(dimension - 1)] = {
                static_cast<ULONG>(item.array.GetArraySize(dimension)),
                item.array.GetArrayLowerBound(dimension)};
        SAFEARRAY* made = make(item, bounds);
        if (!made)
            return;
        auto* elements = static_cast<VARIANT*>(made->pvData);
        ArrayWalk walk(item.array);
        while (const UI_MacroVariant* element = walk.Next()) {
            std::size_t offset = 0;
            if (locate(walk, bounds, offset))
                write(*element, elements[offset], item.depth + 1);
        }
    }

    /// The place of the walk's element; false for one that sticks out of a level of other bounds.
    static bool locate(const ArrayWalk& walk, const std::vector<SAFEARRAYBOUND>& bounds,
                       std::size_t& offset) {
        offset = 0;
        for (std::size_t level = 0; level < bounds.size(); ++level) {
            const std::size_t extent = bounds[bounds.size() - 1 - level].cElements;
            const auto place = static_cast<std::size_t>(walk.GetPlace(static_cast<int>(level)));
            if (place >= extent)
                return false;
            offset = offset * extent + place;
        }
        return true;
    }

    std::vector<Waiting> m_Waiting;
    __int64 m_Total = 0;
};

} // namespace

void MacroVariantAccess::MakeArray(UI_MacroVariant& value, const _ArraySubscript* levels,
                                   int dims) {
    MakeList(value, 0);
    value.m_FlagsOrDims = static_cast<unsigned>(dims);
    value.Arrval().ChangeBounds(levels->lower, levels->upper);
    if (dims > 1)
        UI_MacroVariant::setBounds(levels + 1, value);
}

Counted<IDispatch> FaceOf(const UI_MacroVariant& object) {
    Counted<IDispatch> face;
    if (object.IsMacroEval())
        MacroVariantAccess::GetDispatch(static_cast<const MacroEval&>(object), face.Out());
    return face;
}

bool MacroVariantAccess::GetDispatch(const MacroEval& object, IDispatch** out) {
    return object.GetDispatch(out);
}

COleVariant ToVariant(const UI_MacroVariant& value) { return VariantWriter().Write(value); }

void FromVariant(const VARIANT& source, UI_MacroVariant& target) {
    UI_MacroVariant value; // what is overwritten may keep the source's objects alive
    if ((source.vt & VT_ARRAY) != 0)
        ArrayReader().Read(source, value);
    else
        readSingle(source, value);
    target.Take(value);
}
