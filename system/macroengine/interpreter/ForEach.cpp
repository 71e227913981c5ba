#include "interpreter/ForEach.h"

#include <Automation.h>

#include "interpreter/Semantics.h"
#include "values/Enumerators.h"

using namespace semantics;

void MakeEnumerator(MacroParser& processor, UI_MacroVariant& collection, UI_MacroVariant& state) {
    UI_MacroVariant* body = collection.getBody();
    if (!body)
        processor.OnError("Object required");
    IUnknown* enumerator = nullptr;
    if (body->GetType() == vvtArray && !body->IsMacroEval()) {
        enumerator = MakeArrayEnumerator(*body);
    } else if (body->GetType() == vvtObject || body->IsMacroEval()) {
        if (!HasCollectionFace(*body))
            processor.OnError("Object expected");
        enumerator = MakeObjectEnumerator(*body);
        if (!enumerator)
            processor.OnError("Object is not itarable");
    } else if (body->GetType() == vvtReference) {
        processor.OnError(withDescription("Object required", body->DescribeVar()));
    } else {
        processor.OnError("Object expected");
    }
    state.Clear();
    state.SetUnknownObjectVal(enumerator);
    enumerator->Release();
}

bool NextItem(UI_MacroVariant& state, UI_MacroVariant& item) {
    return TakeNextItem(*state.GetUnknownVal(), item);
}
