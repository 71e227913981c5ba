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

    virtual void SetName(const SYS_String& name);
    /// Makes an object visible under a name (null: its own). An empty name does nothing.
    virtual void Register(MacroEval& object, const char* name);
    virtual void Remove(MacroEval& object, const char* name);
    /// The object of that name, or null. Raises: never.
    virtual UI_MacroVariant* Get(const char* name) const;
    virtual void RegisterWithMacroParent();
    virtual void RemoveFromMacroParent();
    virtual MacroEval* GetEvalParent();
    /// The dotted path of the parents, as it stands in recorded text.
    virtual SYS_String GetEvalParentName();
    virtual void SetEvalParent(MacroEval* parent);
    virtual void OnMacroError(const SYS_String& message) const;
    virtual void OnMacroError(int code, const SYS_String& param) const;
    /// Strips omitted arguments at the end, then raises 34 unless the count is as expected.
    virtual void CheckArguments(int expected, UI_MacroVariant* args, int& count);
    virtual void Record(const char* text, int id);
    /// The processor has been reset; a host object may register its constants again.
    virtual void OnParserReset(MacroSupport& processor);

    SYS_String GetName() const override;
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

    static void regConstantInParser(MacroSupport& processor, const SYS_String& name,
                                    const UI_MacroVariant& value);
    static void regColorConstantInParser(MacroSupport& processor);
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
