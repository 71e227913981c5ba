#pragma once

// Objects that macros can name: the base of host objects and of the processor itself.

#include <ClassDescriptors.h>
#include <SCC_Map.h>
#include <SCC_SharedPointer.h>
#include <SCL_Pointer.h>
#include <UI_MacroVariant.h>

class MacroSupport;

/// A node of the tree of named objects, and a value. Its creator owns it; the tree and macros
/// hold references that read as Null once it has gone.
class KEL_MCR_API MacroEval : public UI_MacroVariant,
                              public tRefCounted<ScriptDebugger::iScriptObject> {
public:
    /// Names ignoring case, each with a Reference to an object or with a value.
    class Map : public tRefCounted<iRefCounted>, public SCC_Map<SYS_StrNoCase, UI_MacroVariant> {};

    /// Starts with counting disabled: the creator owns the object.
    explicit MacroEval(const char* name);
    /// Shares the names of the source and copies its name, parent and value; registers nothing.
    MacroEval(const MacroEval& other);
    MacroEval& operator=(const MacroEval& other);
    ~MacroEval() override;

    using UI_MacroVariant::operator=;

    /// A member of this object: a child, a member of its class, or what the value itself offers.
    /// Raises: any. Re-enters: host members.
    UI_MacroVariant Evaluate(const char* name, UI_MacroVariant* args, int argc) override;
    const ScriptDebugger::iApplicationClass* GetMacroDescriptor() const override;
    /// True for a null name, a child, or a property of the class.
    bool IsPropertyGet(const char* name) override;

    /// Renames the object; the names that it is registered under stay.
    virtual void SetName(const SYS_String& name);
    /// Makes an object a child of this one under a name (null: its own) in place of what had the
    /// name before. An empty name does nothing. Owner: the caller keeps the object.
    virtual void Register(MacroEval& object, const char* name);
    /// Takes a name (null: the object's own) away if it is that object's. The object is no child
    /// from now on.
    virtual void Remove(MacroEval& object, const char* name);
    /// The object of that name, or null. Raises: never.
    virtual UI_MacroVariant* Get(const char* name) const;
    /// Registers with the parent, or with the current processor if there is no parent.
    virtual void RegisterWithMacroParent();
    virtual void RemoveFromMacroParent();
    /// Null without a parent, or if it has gone.
    virtual MacroEval* GetEvalParent();
    /// The dotted path of the parents, as it stands in recorded text; two blanks for each open
    /// dialog in the place of the name of the innermost one. A nameless parent that has a parent
    /// is an assertion.
    virtual SYS_String GetEvalParentName();
    /// Registers nothing.
    virtual void SetEvalParent(MacroEval* parent);
    /// Raises: MacroException with that text, or with the text of the code, ": " and the
    /// parameter; nothing without a processor.
    virtual void OnMacroError(const SYS_String& message) const;
    virtual void OnMacroError(int code, const SYS_String& param) const;
    /// Strips omitted arguments at the end, then raises 34 unless the count is as expected; without
    /// a processor nothing is raised.
    virtual void CheckArguments(int expected, UI_MacroVariant* args, int& count);
    /// Reports a line to the recordings, see MacroSupport::Record; nothing without a processor.
    virtual void Record(const char* text, int id);
    /// The processor has been reset; a host object may register its constants again.
    virtual void OnParserReset(MacroSupport& processor);

    SYS_String GetName() const override;
    /// The name in the form of a member, for class descriptors.
    UI_MacroVariant GetMacroName(int argc, UI_MacroVariant* args) const;
    static cMacroAppClass* GetMacroClass();

    static const char* const TypeNameInt;
    static const char* const TypeNameReal;
    static const char* const TypeNameString;
    static const char* const TypeNameBoolean;
    static const char* const TypeNameVariant;

protected:
    void flushParent(UI_MacroVariant* child);
    SCC_SharedPointer<Map>& GetPMap() { return m_Map; }
    const SCC_SharedPointer<Map>& GetPMap() const { return m_Map; }
    Map& getMap();

    /// Makes a constant in the running frame of a processor, to its next reset. A variable that
    /// has the name already stays.
    static void regConstantInParser(MacroSupport& processor, const SYS_String& name,
                                    const UI_MacroVariant& value);
    /// The same for all named colours, such as `vbColorBlack`.
    static void regColorConstantInParser(MacroSupport& processor);
    /// The name of the constant for a colour; the number as text if it has none.
    static SYS_String getColorVarNameByRGB(int color);

private:
    friend struct MacroVariantAccess;

    bool GetDispatch(IDispatch** out) const override;
    const _GUID* GetIID() const override;

    SCC_SharedPointer<Map> m_Map;
    SYS_String m_Name;
    SCC_SafePointer<UI_MacroVariant> m_Parent; // a MacroEval; it may end first
};

// The class templates of the descriptors need the class above.
#include <MacroClassMembers.h>
