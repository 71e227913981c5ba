#pragma once

#include <Automation.h>
#include <UI_MacroEval.h>

#include <functional>
#include <string>
#include <vector>

/// The automation face of an object. `For Each` needs it: a collection hands out its items through
/// it, and each item stands in the loop by its own face, through which the macro calls members.
///
/// A failing member raises as ever. That may pass through here, because both sides are this engine.
class ObjectFace final : public IDispatch {
public:
    using Items = std::function<std::vector<IDispatch*>()>;

    /// `items` makes it a collection; what it gives must live as long as the object.
    explicit ObjectFace(MacroEval& object, Items items = nullptr)
        : m_Object(&object), m_Items(std::move(items)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count,
                                            LCID locale, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                     UINT* wrongArgument) override;

private:
    ~ObjectFace() = default;
    HRESULT enumerate(VARIANT* result);

    SCC_SafePointer<UI_MacroVariant> m_Object; // macros may keep the face for longer
    Items m_Items;
    std::vector<std::string> m_Names; // a member's number is its place here, from 1
    ULONG m_References = 1;
};

/// An object that has such a face.
class FacedObject : public MacroEval {
public:
    explicit FacedObject(const char* name, ObjectFace::Items items = nullptr)
        : MacroEval(name), m_Face(new ObjectFace(*this, std::move(items))) {}
    FacedObject(const FacedObject&) = delete;
    FacedObject& operator=(const FacedObject&) = delete;
    ~FacedObject() override { m_Face->Release(); }
    using MacroEval::operator=;

    IDispatch* GetFace() { return m_Face; }

private:
    bool GetDispatch(IDispatch** out) const override;

    ObjectFace* m_Face;
};
