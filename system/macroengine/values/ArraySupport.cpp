// Making, reshaping and separating arrays in values.

#include <SCL_Assert.h>
#include <UI_MacroProcessor.h>
#include <UI_MacroVariant.h>

#include <utility>
#include <vector>

#include "values/ArrayLimits.h"
#include "values/Failure.h"

namespace {

using Subscripts = SCC_Array<_ArraySubscript>;

__int64 extentOf(const _ArraySubscript& subscript) {
    __int64 extent = static_cast<__int64>(subscript.upper) - subscript.lower + 1;
    return extent > 0 ? extent : 0;
}

const _ArraySubscript& subscriptAt(const Subscripts& subscripts, int index) {
    return subscripts[index];
}

// Whether all levels together stay within the limit; the last subscript is the outermost level.
bool levelsFit(const Subscripts& subscripts) {
    __int64 total = 0;
    __int64 arrays = 1;
    for (int i = subscripts.GetCount(); i-- > 0;) {
        // Neither factor passes 33 bits: `arrays` has been found to fit.
        arrays *= extentOf(subscriptAt(subscripts, i));
        total += arrays;
        if (!MacroArrayFits(total))
            return false;
    }
    return true;
}

void addElements(UI_MacroArray& array, std::vector<UI_MacroVariant*>& out) {
    for (int i = 0; i < array.GetCount(); ++i)
        out.push_back(&array[array.GetLowerBound() + i]);
}

// An array on the way of a walk, and the index of its next element.
struct OpenArray {
    UI_MacroVariant* value;
    int next;
};

} // namespace

void MacroVariantArraySupport::CreateArray(UI_MacroVariant* var, Subscripts& subscripts,
                                           bool dynamic) {
    if (!levelsFit(subscripts))
        return;
    var->Clear();
    const int count = subscripts.GetCount();
    const VariantArrayType type = count == 0 || dynamic ? ArrayDynamic : ArrayFixed;
    std::vector<UI_MacroVariant*> level{var};
    for (int dims = count; dims >= 1; --dims) {
        const _ArraySubscript& bounds = subscriptAt(subscripts, dims - 1);
        std::vector<UI_MacroVariant*> inner;
        for (UI_MacroVariant* value : level) {
            value->m_Type = vvtArray;
            value->m_FlagsOrDims = static_cast<unsigned>(dims);
            value->m_IdOrArrayType = type;
            value->Arrval().ChangeBounds(bounds.lower, bounds.upper);
            if (dims > 1)
                addElements(value->Arrval(), inner);
        }
        level.swap(inner);
    }
    if (count == 0) {
        var->m_Type = vvtArray;
        var->m_IdOrArrayType = type;
    }
}

void MacroVariantArraySupport::ReCreateArray(UI_MacroVariant* var, Subscripts& subscripts,
                                             bool preserve) {
    const int arrayType = var->m_IdOrArrayType;
    const bool isArray = var->m_Type == vvtArray;
    if (isArray && arrayType == ArrayFixed) {
        Fail(errNotDynamicArray);
        return;
    }
    if (!levelsFit(subscripts))
        return;
    if (isArray && preserve && var->GetArrNumDims() != 0) {
        if (var->GetArrNumDims() != subscripts.GetCount() || !IsPreservable(*var, subscripts)) {
            Fail(errArrayNotPreservable);
            return;
        }
        UI_MacroArray old(var->Arrval());
        CreateArray(var, subscripts, true);
        if (var->GetArrNumDims() != 0)
            CopyDataItems(old, *var);
    } else {
        CreateArray(var, subscripts, true);
    }
    var->m_IdOrArrayType = arrayType;
}

// Level i counted from the outermost is held against subscript i, though arrays are made the other
// way round: macros rely on which shapes are refused.
bool MacroVariantArraySupport::IsPreservable(UI_MacroVariant& var, Subscripts& subscripts) {
    if (subscripts.IsEmpty())
        return false;
    const UI_MacroVariant* value = &var;
    for (int i = 0;; ++i) {
        const UI_MacroArray& array = value->Arrval();
        const _ArraySubscript& bounds = subscriptAt(subscripts, i);
        if (array.GetLowerBound() != bounds.lower)
            return false;
        if (i + 1 >= subscripts.GetCount())
            return true;
        if (array.GetUpperBound() != bounds.upper)
            return false;
        if (!SCL_ASSERT(!array.IsEmpty(), "An array level without elements"))
            return false;
        value = array.GetData();
        if (!SCL_ASSERT(value->GetType() == vvtArray, "An array level without an array"))
            return false;
    }
}

void MacroVariantArraySupport::CopyDataItems(UI_MacroArray& source, UI_MacroVariant& var) {
    using Pair = std::pair<UI_MacroArray*, UI_MacroArray*>;
    std::vector<Pair> level{{&source, &var.Arrval()}};
    for (int dims = var.GetArrNumDims(); dims > 1; --dims) {
        std::vector<Pair> inner;
        for (auto [from, to] : level) {
            SCL_ASSERT(from->GetLowerBound() == to->GetLowerBound(), "Arrays of other bounds");
            const int count = from->GetCount() < to->GetCount() ? from->GetCount() : to->GetCount();
            for (int i = 0; i < count; ++i) {
                UI_MacroVariant& old = (*from)[from->GetLowerBound() + i];
                UI_MacroVariant& made = (*to)[to->GetLowerBound() + i];
                if (SCL_ASSERT(old.GetType() == vvtArray && made.GetType() == vvtArray,
                               "An array level without an array"))
                    inner.emplace_back(&old.Arrval(), &made.Arrval());
            }
        }
        level.swap(inner);
    }
    for (auto [from, to] : level) {
        // Written by index beyond its end, an array grows: preserving never shrinks it.
        for (int i = 0; i < from->GetCount(); ++i)
            (*to)[to->GetLowerBound() + i] = from->GetData()[i];
    }
}

void MacroVariantArraySupport::SeparateBuffers(UI_MacroVariant& var) {
    UI_MacroVariant* root = var.GetRVal();
    if (!SCL_ASSERT(root && root->GetType() == vvtArray, "Separating what is no array"))
        return;
    std::vector<OpenArray> open{{root, 0}};
    __int64 total = root->Arrval().GetCount();
    while (!open.empty()) {
        OpenArray& top = open.back();
        UI_MacroArray& array = top.value->Arrval();
        const int lower = array.GetLowerBound();
        if (top.next >= array.GetCount()) {
            // Also gives an empty array one element, as assigning it always has.
            static_cast<void>(array[lower]);
            open.pop_back();
            continue;
        }
        UI_MacroVariant* element = array[lower + top.next++].GetRVal();
        if (!element || element->GetType() != vvtArray)
            continue;
        total += element->Arrval().GetCount();
        if (!MacroArrayFits(total))
            return;
        if (open.size() >= MaxArrayNesting) {
            Fail(errIllegalNesting);
            return;
        }
        open.push_back({element, 0});
    }
}
