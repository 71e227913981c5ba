// Array storage, and how an index finds its element.

#include <SCL_Assert.h>
#include <UI_MacroProcessor.h>
#include <UI_MacroVariant.h>

#include <array>
#include <utility>
#include <vector>

#include "values/ArrayLimits.h"
#include "values/Failure.h"

namespace {

// What a failed access gets, in case the failure comes back.
UI_MacroVariant& scratchElement() {
    static UI_MacroVariant* const element = new UI_MacroVariant();
    element->Clear();
    return *element;
}

__int64 extent(int lower, int upper) { return static_cast<__int64>(upper) - lower + 1; }

// The array of a value of kind Array, null for other kinds. Reading through it separates nothing.
const UI_MacroArray* arrayOf(const UI_MacroVariant& value) {
    return value.GetType() == vvtArray ? &value.Arrval() : nullptr;
}

// The array `levels` further in, always through first elements; null if there is none.
const UI_MacroArray* descend(const UI_MacroVariant& value, int levels) {
    const UI_MacroArray* array = arrayOf(value);
    for (; array && levels > 0; --levels)
        array = array->IsEmpty() ? nullptr : arrayOf(*array->GetData());
    return array;
}

} // namespace

bool MacroArrayFits(__int64 elements) {
    if (elements <= MacroSupport::GetLimits().arrayElements)
        return true;
    FailOutOfMemory();
    return false;
}

// --- UI_MacroArray ------------------------------------------------------------------------------

UI_MacroArray::UI_MacroArray(int lower, int upper) { ChangeBounds(lower, upper); }

UI_MacroArray::UI_MacroArray(UI_MacroArray&& other) noexcept
    : SCC_Array<UI_MacroVariant>(std::move(other)),
      m_LowerBound(std::exchange(other.m_LowerBound, 0)) {}

UI_MacroArray& UI_MacroArray::operator=(UI_MacroArray&& other) noexcept {
    SCC_Array<UI_MacroVariant>::operator=(std::move(other));
    if (this != &other)
        m_LowerBound = std::exchange(other.m_LowerBound, 0);
    return *this;
}

int UI_MacroArray::GetUpperBound() const {
    return static_cast<int>(static_cast<__int64>(m_LowerBound) + GetCount() - 1);
}

int UI_MacroArray::InBounds(int index) const {
    __int64 offset = static_cast<__int64>(index) - m_LowerBound;
    return offset >= 0 && offset < GetCount() ? 1 : 0;
}

void UI_MacroArray::ChangeCount(int n) {
    if (n >= 1 && MacroArrayFits(n))
        SetSize(n);
}

void UI_MacroArray::ChangeBounds(int lower, int upper) {
    if (upper >= lower) {
        if (!MacroArrayFits(extent(lower, upper)))
            return;
        SetSize(static_cast<int>(extent(lower, upper)));
    }
    m_LowerBound = lower;
}

void UI_MacroArray::Clear() {
    SCC_Array<UI_MacroVariant>::Clear();
    m_LowerBound = 0;
}

UI_MacroVariant& UI_MacroArray::operator[](int index) const {
    __int64 offset = static_cast<__int64>(index) - m_LowerBound;
    if (!SCL_ASSERT(offset >= 0, "An array index below the lower bound"))
        return scratchElement();
    // Constness is that of the bounds: a shared buffer is separated here.
    auto& elements = const_cast<SCC_Array<UI_MacroVariant>&>(
        static_cast<const SCC_Array<UI_MacroVariant>&>(*this));
    if (offset >= GetCount()) {
        if (!MacroArrayFits(offset + 1))
            return scratchElement();
        elements.CheckArray(static_cast<int>(offset));
    }
    return elements[static_cast<int>(offset)];
}

void UI_MacroArray::Append(const UI_MacroVariant& value) {
    if (!MacroArrayFits(static_cast<__int64>(GetCount()) + 1))
        return;
    if (!GetSort()) {
        SCC_Array<UI_MacroVariant>::Append(value);
        return;
    }
    UI_MacroVariant copy(value); // the value may be one of the elements that move
    int first = 0;
    int last = 0;
    FindItemPosition(&copy, first, last);
    Insert(last, 1);
    SCC_Array<UI_MacroVariant>::operator[](last) = copy;
}

void UI_MacroArray::CheckArray(int) const { SCL_ASSERT(false, "Not implemented"); }

// --- elements and bounds ------------------------------------------------------------------------

UI_MacroVariant& UI_MacroVariant::operator[](int index) {
    if (m_Type != vvtArray || !Arrval().InBounds(index)) {
        Fail(errIndexOutOfRange);
        return scratchElement();
    }
    return Arrval()[index];
}

const UI_MacroVariant& UI_MacroVariant::operator[](int index) const {
    const UI_MacroArray* array = arrayOf(*this);
    if (!array || !array->InBounds(index)) {
        Fail(errIndexOutOfRange);
        return scratchElement();
    }
    return array->GetData()[static_cast<__int64>(index) - array->GetLowerBound()];
}

int UI_MacroVariant::GetArraySize(int dim) const {
    const UI_MacroArray* array = dimension(dim);
    return array ? array->GetCount() : 0;
}

int UI_MacroVariant::GetArrayLowerBound(int dim) const {
    const UI_MacroArray* array = dimension(dim);
    return array ? array->GetLowerBound() : 0;
}

int UI_MacroVariant::GetArrayUpperBound(int dim) const {
    const UI_MacroArray* array = dimension(dim);
    return array ? array->GetUpperBound() : 0;
}

const UI_MacroArray* UI_MacroVariant::dimension(int dim) const {
    if (m_Type != vvtArray || dim < 1 || dim > GetArrNumDims())
        return nullptr;
    return descend(*this, GetArrNumDims() - dim);
}

// --- walking ------------------------------------------------------------------------------------

void UI_MacroVariant::resetMultiArrayInx(long* inx) {
    if (m_Type != vvtArray)
        return;
    for (int level = 0; level < GetArrNumDims(); ++level) {
        const UI_MacroArray* array = descend(*this, level);
        inx[level] = array ? array->GetLowerBound() : 0;
    }
}

UI_MacroVariant* UI_MacroVariant::nextMultiArrayVal(long* inx) {
    if (m_Type != vvtArray || GetArrNumDims() < 1)
        return nullptr;
    const auto dims = static_cast<std::size_t>(GetArrNumDims());
    std::array<const UI_MacroArray*, MacroShortIndexList> few;
    std::vector<const UI_MacroArray*> many(dims > few.size() ? dims : 0);
    const UI_MacroArray** levels = many.empty() ? few.data() : many.data();

    UI_MacroVariant* element = this;
    for (std::size_t i = 0; i < dims; ++i) {
        levels[i] = arrayOf(*element);
        auto index = static_cast<int>(inx[i]);
        if (!levels[i] || index != inx[i] || !levels[i]->InBounds(index))
            return nullptr;
        element = &(*levels[i])[index];
    }
    for (std::size_t i = dims; i-- > 0;) {
        if (++inx[i] <= levels[i]->GetUpperBound() || i == 0)
            break;
        inx[i] = levels[i]->GetLowerBound();
    }
    return element;
}

// --- making the inner levels --------------------------------------------------------------------

void UI_MacroVariant::setBounds(const _ArraySubscript* subs, UI_MacroVariant& v) {
    if (!SCL_ASSERT(v.GetArrNumDims() >= 2, "Bounds for an array without inner levels"))
        return;
    std::vector<UI_MacroVariant*> level{&v};
    __int64 total = v.Arrval().GetCount();
    for (int dims = v.GetArrNumDims() - 1; dims > 0; --dims, ++subs) {
        std::vector<UI_MacroVariant*> inner;
        for (UI_MacroVariant* value : level) {
            UI_MacroArray& array = value->Arrval();
            for (int i = 0; i < array.GetCount(); ++i)
                inner.push_back(&array[array.GetLowerBound() + i]);
        }
        __int64 count = subs->upper >= subs->lower ? extent(subs->lower, subs->upper) : 0;
        total += count * static_cast<__int64>(inner.size());
        if (!MacroArrayFits(total))
            return;
        for (UI_MacroVariant* value : inner) {
            value->Clear();
            value->m_Type = vvtArray;
            value->m_IdOrArrayType = ArrayValue;
            value->m_FlagsOrDims = static_cast<unsigned>(dims);
            value->Arrval().ChangeBounds(subs->lower, subs->upper);
        }
        level.swap(inner);
    }
}

// --- indexing -----------------------------------------------------------------------------------

namespace {

// The indices of one list, outermost level first. Short lists need no memory.
class IndexList {
public:
    explicit IndexList(int count)
        : m_Count(count), m_Many(count > MacroShortIndexList ? count : 0) {}

    int GetCount() const { return m_Count; }
    int& operator[](int i) {
        auto at = static_cast<std::size_t>(i);
        return m_Many.empty() ? m_Few[at] : m_Many[at];
    }

private:
    int m_Count;
    std::array<int, MacroShortIndexList> m_Few;
    std::vector<int> m_Many;
};

// The last index of the source belongs to the outermost level and is read first.
void readArguments(UI_MacroVariant* args, IndexList& indices) {
    for (int i = 0; i < indices.GetCount(); ++i)
        indices[i] = static_cast<int>(args[indices.GetCount() - 1 - i]);
}

void readElements(UI_MacroVariant& list, IndexList& indices) {
    for (int i = 0; i < indices.GetCount(); ++i)
        indices[i] = static_cast<int>(list[list.Arrval().GetUpperBound() - i]);
}

// One list of indices applied to a value; null after a failure.
UI_MacroVariant* applyIndices(UI_MacroVariant* value, IndexList& indices) {
    if (value->GetType() != vvtArray) {
        Fail(errTooManyIndexLists);
        return nullptr;
    }
    if (value->GetArrNumDims() != indices.GetCount()) {
        Fail(errDimensionCount);
        return nullptr;
    }
    for (int i = 0; i < indices.GetCount(); ++i) {
        const UI_MacroArray* array = arrayOf(*value);
        if (!array || !array->InBounds(indices[i])) {
            Fail(errIndexOutOfRange);
            return nullptr;
        }
        value = &(*value)[indices[i]];
    }
    return value;
}

} // namespace

UI_MacroVariant UI_MacroVariant::EvaluateArray(UI_MacroVariant* var, UI_MacroVariant* args,
                                               int argc) {
    if (!var)
        return UI_MacroVariant(static_cast<UI_MacroVariant*>(nullptr));
    if (argc <= 0)
        return UI_MacroVariant(*var);
    UI_MacroVariant* element = var->GetRVal();
    if (!element)
        return Fail(errPointerIsNull);
    if (element->m_Type != vvtArray)
        return Fail(errUnknownArray);
    // Reading an index may run host code that ends the array.
    SCC_SafePointer<UI_MacroVariant> alive(element);
    if (args[0].m_Type != vvtArray) {
        IndexList indices(argc);
        readArguments(args, indices);
        element = alive ? applyIndices(element, indices) : nullptr;
        if (!alive)
            return Fail(errPointerIsNull);
    } else {
        for (int list = 0; list < argc && element; ++list) {
            const UI_MacroArray* array = arrayOf(args[list]);
            IndexList indices(array ? array->GetCount() : 0);
            UI_MacroVariant kept(args[list]);
            readElements(kept, indices);
            if (!alive)
                return Fail(errPointerIsNull);
            element = applyIndices(element, indices);
            alive = element;
        }
    }
    if (!element)
        return UI_MacroVariant();
    UI_MacroVariant* const reference = new UI_MacroVariantItemRef(element);
    return UI_MacroVariant(reference);
}
