#pragma once

// What a script debugger or an editor can ask about objects and their classes.

#include <SCL_Pointer.h>
#include <SYS_String.h>

struct IDispatch;
struct _GUID;

namespace ScriptDebugger {

using kel_ns::iRefCounted;
using kel_ns::SYS_String;

/// What every object of the engine offers.
class iScriptObject : public iRefCounted {
public:
    virtual SYS_String GetName() const = 0;

private:
    virtual bool GetDispatch(IDispatch** out) const = 0;
    virtual const _GUID* GetIID() const = 0;
};

class iArgument {
public:
    virtual ~iArgument() = default;
    virtual SYS_String GetName() const = 0;
    virtual SYS_String GetType() const = 0;
    virtual bool ByRef() const = 0;
    virtual bool IsOptional() const = 0;
    virtual unsigned GetCount() const = 0;
};

class iMethod {
public:
    virtual ~iMethod() = default;
    virtual SYS_String GetName() const = 0;
    virtual SYS_String GetResultType() const = 0;
    virtual bool IsHidden() const = 0;
    virtual unsigned GetRequiredArguments() const = 0;
    virtual unsigned GetOptionalArguments() const = 0;
    virtual unsigned GetRequiredPlaces() const = 0;
    virtual unsigned GetOptionalPlaces() const = 0;
    virtual const iArgument* GetArgument(unsigned i) const = 0;
};

class iProperty : public iMethod {
public:
    virtual bool IsReadOnly() const = 0;
};

class iApplicationClass {
public:
    virtual ~iApplicationClass() = default;
    virtual SYS_String GetName() const = 0;
    virtual bool IsHidden() const = 0;
    virtual const iApplicationClass* GetParentClass() const = 0;
    virtual unsigned GetMethodsCount() const = 0;
    virtual const iMethod* GetMethod(unsigned i) const = 0;
    virtual unsigned GetPropertiesCount() const = 0;
    virtual const iProperty* GetProperty(unsigned i) const = 0;
    virtual const iMethod* GetDefaultPropertyOrMethod() const = 0;
};

class iApplicationClasses {
public:
    virtual ~iApplicationClasses() = default;
    virtual SYS_String GetName() const = 0;
    virtual unsigned GetApplicationClassesCount() const = 0;
    virtual const iApplicationClass* GetApplicationClass(unsigned i) const = 0;
};

} // namespace ScriptDebugger
