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

/// What a Reference finally refers to, made current if it is a property; null for Null.
UI_MacroVariant* readTarget(const UI_MacroVariant& reference);
