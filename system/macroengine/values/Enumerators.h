#pragma once

#include <UI_MacroVariant.h>

struct IUnknown;

// Enumerators over collections. Each maker gives one reference to the caller.

/// Over the elements of an array, innermost dimension fastest. Walks a copy that shares the
/// elements, so reshaping the array during the walk is safe.
IUnknown* MakeArrayEnumerator(const UI_MacroVariant& array);
/// Whether the value is an automation object (Nothing is one too), or a host's object with an
/// automation face.
bool HasCollectionFace(UI_MacroVariant& object);
/// Over the items of an automation object; null if it has no enumerator. Raises: 14 for Nothing.
/// Re-enters: host objects.
IUnknown* MakeObjectEnumerator(UI_MacroVariant& object);
/// The next item; false at the end. The enumerator must come from one of the makers above.
/// Re-enters: host objects.
bool TakeNextItem(IUnknown& enumerator, UI_MacroVariant& item);
