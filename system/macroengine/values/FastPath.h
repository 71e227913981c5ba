#pragma once

// Reading a value without the virtual protocol, for the kinds that macros compute with most.

#include <UI_MacroVariant.h>

#include <typeinfo>

/// The element that an element reference stands for while it lives, else the value itself.
inline const UI_MacroVariant& liveElement(const UI_MacroVariant& value) {
    if (value.GetRole() == UI_MacroVariant::Role::Element) {
        const auto& item = static_cast<const UI_MacroVariantItemRef&>(value);
        if (const UI_MacroVariant* element = item.GetElement())
            return *element;
    }
    return value;
}

/// True if reading this Reference means reading its target, with nothing else to observe.
inline bool readsThrough(const UI_MacroVariant& reference) {
    switch (reference.GetRole()) {
    case UI_MacroVariant::Role::Plain: // a class of the host may read in its own way
        return typeid(reference) == typeid(UI_MacroVariant);
    case UI_MacroVariant::Role::Variable: // a constant stands for itself
        return !reference.isConstant();
    case UI_MacroVariant::Role::Element:
        return true;
    case UI_MacroVariant::Role::Object:
        return false;
    }
    return false;
}

/// The value to compute with if it is an Integer, Double, Boolean or String that reading cannot
/// change: the operand, or the variable or element that it refers to. Null for all else, which
/// takes the general way.
inline const UI_MacroVariant* readScalar(const UI_MacroVariant& operand) {
    using Role = UI_MacroVariant::Role;
    const UI_MacroVariant* at = &operand;
    for (;;) {
        at = &liveElement(*at);
        switch (at->GetType()) {
        case vvtInteger:
        case vvtDouble:
        case vvtBoolean:
        case vvtString:
            return at->GetRole() == Role::Object ? nullptr : at;
        case vvtReference: {
            const UI_MacroVariant* target = at->getRefVal();
            if (!target || !readsThrough(*at))
                return nullptr;
            // A plain target may be a property that has to be read first.
            if (target->GetRole() != Role::Variable && target->GetRole() != Role::Element)
                return nullptr;
            at = target;
            break;
        }
        case vvtEmpty:
        case vvtObject:
        case vvtFunction:
        case vvtArray:
        case vvtMissing:
        case vvtHandle:
        case vvtScript:
        case vvtUnknown:
            return nullptr;
        }
    }
}

/// The array behind a variable, if getting at it runs nothing of the host and it is no constant.
inline const UI_MacroVariant* readArray(const UI_MacroVariant& variable) {
    const UI_MacroVariant* at = &variable;
    while (at->GetType() == vvtReference) {
        const UI_MacroVariant* target = at->getRefVal();
        if (!target || !readsThrough(*at))
            return nullptr;
        at = &liveElement(*target);
    }
    const bool isArray = at->GetType() == vvtArray && !at->isConstant() &&
                         at->GetRole() != UI_MacroVariant::Role::Object;
    return isArray ? at : nullptr;
}

/// Whether the value is Empty, a number, a Boolean or a text.
inline bool isSimple(const UI_MacroVariant& value) {
    switch (value.GetType()) {
    case vvtEmpty:
    case vvtString:
    case vvtInteger:
    case vvtDouble:
    case vvtBoolean:
        return true;
    case vvtReference:
    case vvtObject:
    case vvtFunction:
    case vvtArray:
    case vvtMissing:
    case vvtHandle:
    case vvtScript:
    case vvtUnknown:
        return false;
    }
    return false;
}

/// The simple element of as many indices as the array has dimensions; null for anything that
/// needs the general way, such as an error. `next` gives the indices, the last of the list first.
/// An element that is to be written gets a buffer that nobody shares.
template <bool ForWriting, class NextIndex>
const UI_MacroVariant* selectElement(const UI_MacroVariant& array, int count, NextIndex&& next) {
    if (array.GetArrNumDims() != count)
        return nullptr;
    const UI_MacroVariant* value = &array;
    for (int i = 0; i < count; ++i) {
        int index = 0;
        if (value->GetType() != vvtArray || !next(index))
            return nullptr;
        const UI_MacroArray& level = value->Arrval();
        const __int64 offset = static_cast<__int64>(index) - level.GetLowerBound();
        if (offset < 0 || offset >= level.GetCount())
            return nullptr;
        value = ForWriting ? &level[index] : level.GetData() + offset;
    }
    return isSimple(*value) ? value : nullptr;
}

/// What a Reference finally refers to, made current if it is a property; null for Null.
UI_MacroVariant* readTarget(const UI_MacroVariant& reference);
