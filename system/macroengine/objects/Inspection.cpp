// Values as a debugger shows them: the variables of a frame, the parts of arrays and objects.

#include <ClassDescriptors.h>
#include <MacroInspection.h>
#include <UI_MacroProcessor.h>

#include <algorithm>
#include <vector>

#include "engine/Frames.h"
#include "interpreter/RunGuard.h"
#include "values/ArrayWalk.h"
#include "values/CopyOut.h"

namespace {

using Class = ScriptDebugger::iApplicationClass;
using Property = ScriptDebugger::iProperty;

/// A copy to look at. While an element of some array is referred to, an array must not come to
/// share its buffer: the Reference would stay with the wrong one.
UI_MacroVariant copyToShow(UI_MacroVariant* value) {
    if (value && value->GetType() == vvtArray && UI_MacroVariantItemRef::AnyLive()) {
        UI_MacroVariant copy;
        if (!value->Arrval().IsEmpty())
            copy.Assign(*value);
        return copy;
    }
    return CopyOut(value);
}

UI_MacroVariant* bodyOf(const UI_MacroVariant& value) { return value.GetRVal(); }

MacroEval* objectOf(const UI_MacroVariant& value) {
    UI_MacroVariant* body = bodyOf(value);
    return body && body->IsMacroEval() ? static_cast<MacroEval*>(body) : nullptr;
}

/// The properties that can be read without arguments. A member of a class hides those of the same
/// name in the classes above.
std::vector<const Property*> propertiesOf(const MacroEval& object) {
    std::vector<const Property*> properties;
    std::vector<SYS_String> names;
    for (const Class* c = object.GetMacroDescriptor(); c; c = c->GetParentClass()) {
        for (unsigned i = 0; i < c->GetPropertiesCount(); ++i) {
            const Property* property = c->GetProperty(i);
            const SYS_String name = property->GetName();
            const bool isHidden =
                std::any_of(names.begin(), names.end(), [&name](const SYS_String& known) {
                    return known.CompareNoCase(name) == 0;
                });
            names.push_back(name);
            if (!isHidden && !property->IsHidden() && property->GetRequiredPlaces() == 0)
                properties.push_back(property);
        }
        for (unsigned i = 0; i < c->GetMethodsCount(); ++i)
            names.push_back(c->GetMethod(i)->GetName());
    }
    return properties;
}

int countElements(const UI_MacroVariant& array) {
    int count = 0;
    for (ArrayWalk walk(array); walk.Next();)
        ++count;
    return count;
}

bool isOpenable(const UI_MacroVariant& value) {
    if (const MacroEval* object = objectOf(value))
        return !propertiesOf(*object).empty();
    const UI_MacroVariant* body = bodyOf(value);
    return body && body->GetType() == vvtArray && ArrayWalk(*body).Next();
}

void describe(MacroPartInfo& part) {
    part.description = part.value.DescribeVar();
    part.hasParts = isOpenable(part.value);
}

SYS_String indexText(const ArrayWalk& walk, int dimensions) {
    SYS_String text("(");
    for (int level = dimensions; level-- > 0;) {
        text << walk.GetIndex(level);
        if (level > 0)
            text << ", ";
    }
    return text << ")";
}

SCL_Vector<MacroPartInfo> listElements(const UI_MacroVariant& array, int first, int count) {
    SCL_Vector<MacroPartInfo> parts;
    ArrayWalk walk(array);
    const int dimensions = array.GetArrNumDims();
    for (int i = 0; i - first < count; ++i) {
        const UI_MacroVariant* element = walk.Next();
        if (!element)
            break;
        if (i < first)
            continue;
        MacroPartInfo part;
        part.name = indexText(walk, dimensions);
        part.value = copyToShow(element->GetRVal());
        describe(part);
        parts.push_back(part);
    }
    return parts;
}

void readProperty(MacroEval& object, MacroPartInfo& part) {
    try {
        UI_MacroVariant read = object.Evaluate(part.name, nullptr, 0);
        read.InitRVal();
        UI_MacroVariant copy = copyToShow(read.GetRVal());
        part.value.Take(copy);
        describe(part);
    } catch (const MacroException& error) {
        part.description = error.GetText();
        part.hasFailed = true;
    }
}

SCL_Vector<MacroPartInfo> listProperties(MacroEval& object, int first, int count) {
    SCL_Vector<MacroPartInfo> parts;
    const std::vector<const Property*> properties = propertiesOf(object);
    const SCC_SafePointer<UI_MacroVariant> living(&object); // a getter may end it
    for (int i = first; i < static_cast<int>(properties.size()) && i - first < count; ++i) {
        if (!static_cast<UI_MacroVariant*>(living))
            break;
        MacroPartInfo part;
        part.name = properties[static_cast<std::size_t>(i)]->GetName();
        readProperty(object, part);
        parts.push_back(part);
    }
    return parts;
}

/// The names that every module has stand first in its frame.
bool isPredefined(const ExecutionContext& frame, unsigned place) {
    constexpr unsigned kPredefined = 3;
    if (place >= kPredefined || frame.m_Below)
        return false;
    const SYS_String& name = frame.m_Variables.GetName(place)->text;
    return frame.m_Variables.GetValue(place)->isConstant() &&
           (name.CompareNoCase("nothing") == 0 || name.CompareNoCase("empty") == 0 ||
            name.CompareNoCase("null") == 0);
}

} // namespace

int CountMacroParts(const UI_MacroVariant& value) {
    if (const MacroEval* object = objectOf(value))
        return static_cast<int>(propertiesOf(*object).size());
    const UI_MacroVariant* body = bodyOf(value);
    return body && body->GetType() == vvtArray ? countElements(*body) : 0;
}

SCL_Vector<MacroPartInfo> ListMacroParts(const UI_MacroVariant& value, int first, int count) {
    first = std::max(first, 0);
    if (MacroEval* object = objectOf(value))
        return listProperties(*object, first, count);
    const UI_MacroVariant* body = bodyOf(value);
    if (body && body->GetType() == vvtArray)
        return listElements(*body, first, count);
    return {};
}

// --- The variables of a frame ------------------------------------------------------------------

SCL_Vector<MacroVariableInfo> MacroSupport::ListVariables(int frame) const {
    SCL_Vector<MacroVariableInfo> list;
    const ExecutionContext* context =
        frame >= 0 && frame < GetFramesCount() ? GetContext(frame) : nullptr;
    if (!context)
        return list;
    const FrameVariables& variables = context->m_Variables;
    for (unsigned i = 0; i < variables.GetCount(); ++i) {
        if (isPredefined(*context, i))
            continue;
        const UI_MacroVariantParam& variable = *variables.GetValue(i);
        MacroVariableInfo info;
        info.name = variables.GetName(i)->text;
        info.description = variable.DescribeVar();
        info.isConstant = LeadsToConstant(variable);
        info.hasParts = isOpenable(variable);
        list.push_back(info);
    }
    return list;
}

/// A variable of a frame, else of the module level of the processor that the frame belongs to.
UI_MacroVariantParam* MacroSupport::findVariableOf(int frame, const SYS_String& name) const {
    if (frame < 0)
        return nullptr;
    const MacroName* interned = MacroName::Intern(name.View());
    for (const MacroSupport* p = this; p; p = p->m_Parent) {
        const FrameStack& frames = *p->m_ContextStack;
        if (const ExecutionContext* context = frames.At(frame)) {
            UI_MacroVariantParam* variable = context->m_Variables.Find(interned);
            return variable ? variable : frames.Bottom()->m_Variables.Find(interned);
        }
        frame -= frames.GetCount();
    }
    return nullptr;
}

bool MacroSupport::ReadVariable(int frame, const SYS_String& name, UI_MacroVariant& value) const {
    const UI_MacroVariantParam* variable = findVariableOf(frame, name);
    if (!variable)
        return false;
    UI_MacroVariant copy = copyToShow(variable->GetRVal());
    value.Clear();
    value.Take(copy);
    return true;
}

bool MacroSupport::WriteVariable(int frame, const SYS_String& name, const UI_MacroVariant& value) {
    UI_MacroVariantParam* variable = findVariableOf(frame, name);
    if (!variable || LeadsToConstant(*variable))
        return false;
    const EntryGuard entry(*this);
    UI_MacroVariant* object = value.getObject(false);
    if (object)
        variable->SetObjectRef(*object);
    else
        variable->Assign(value);
    return true;
}
