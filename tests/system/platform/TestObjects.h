#pragma once

#include <Automation.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>

// An object that counts itself: a test ends with as many as it began with.
class CountedObject : public IDispatch {
public:
    CountedObject() { ++s_Alive; }
    virtual ~CountedObject() { --s_Alive; }

    HRESULT QueryInterface(REFIID iid, void** object) override {
        if (!(iid == IID_IUnknown) && !(iid == IID_IDispatch)) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        AddRef();
        *object = static_cast<IDispatch*>(this);
        return S_OK;
    }
    ULONG AddRef() override { return ++references; }
    ULONG Release() override {
        if (onRelease)
            onRelease();
        const ULONG left = --references;
        if (left == 0)
            delete this;
        return left;
    }
    HRESULT GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return DISP_E_MEMBERNOTFOUND;
    }

    ULONG references = 1;
    std::function<void()> onRelease;

    static inline int s_Alive = 0;
};

// A test whose counted objects must all have ended.
class ObjectTest : public testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(CountedObject::s_Alive, 0); }
};
