#include "TestObjects.h"

#include <limits>
#include <vector>

namespace {

using SafeArrayTest = ObjectTest;

struct Bounds {
    LONG lower = 0;
    LONG upper = 0;
};

Bounds boundsOf(SAFEARRAY* array, UINT dimension) {
    Bounds bounds;
    EXPECT_EQ(SafeArrayGetLBound(array, dimension, &bounds.lower), S_OK);
    EXPECT_EQ(SafeArrayGetUBound(array, dimension, &bounds.upper), S_OK);
    return bounds;
}

TEST_F(SafeArrayTest, DimensionsAndIndicesCountAlike) {
    const SAFEARRAYBOUND bounds[] = {{2, 1}, {3, -5}, {4, 10}};
    SAFEARRAY* array = SafeArrayCreate(VT_I4, 3, bounds);
    ASSERT_NE(array, nullptr);
    EXPECT_EQ(SafeArrayGetDim(array), 3u);
    for (UINT k = 1; k <= 3; ++k) {
        const Bounds found = boundsOf(array, k);
        EXPECT_EQ(found.lower, bounds[k - 1].lLbound);
        EXPECT_EQ(found.upper,
                  bounds[k - 1].lLbound + static_cast<LONG>(bounds[k - 1].cElements) - 1);
    }
    EXPECT_EQ(array->rgsabound[0].lLbound, 10); // kept in reverse

    LONG number = 0;
    const auto eachElement = [&](auto action) {
        number = 0;
        LONG at[3];
        for (at[0] = 1; at[0] <= 2; ++at[0])
            for (at[1] = -5; at[1] <= -3; ++at[1])
                for (at[2] = 10; at[2] <= 13; ++at[2], ++number)
                    action(at);
    };
    eachElement([&](LONG* at) { EXPECT_EQ(SafeArrayPutElement(array, at, &number), S_OK); });
    eachElement([&](LONG* at) {
        LONG got = -1;
        EXPECT_EQ(SafeArrayGetElement(array, at, &got), S_OK);
        EXPECT_EQ(got, number);
    });

    // The first index runs fastest.
    void* data = nullptr;
    ASSERT_EQ(SafeArrayAccessData(array, &data), S_OK);
    EXPECT_EQ(static_cast<LONG*>(data)[1], 12); // (2, -5, 10)
    EXPECT_EQ(static_cast<LONG*>(data)[2], 4);  // (1, -4, 10)
    SafeArrayUnaccessData(array);

    for (const std::vector<LONG>& outside : {std::vector<LONG>{0, -5, 10},
                                             {3, -5, 10},
                                             {1, -2, 10},
                                             {1, -5, 14},
                                             {1, -5, -2147483647}})
        EXPECT_EQ(SafeArrayGetElement(array, outside.data(), &number), DISP_E_BADINDEX);
    LONG bound = 0;
    EXPECT_EQ(SafeArrayGetLBound(array, 0, &bound), DISP_E_BADINDEX);
    EXPECT_EQ(SafeArrayGetUBound(array, 4, &bound), DISP_E_BADINDEX);
    SafeArrayDestroy(array);
}

TEST_F(SafeArrayTest, UnusualForms) {
    constexpr LONG Highest = std::numeric_limits<LONG>::max();
    constexpr LONG Lowest = std::numeric_limits<LONG>::min();

    const SAFEARRAYBOUND none[] = {{0, 7}, {0xFFFFFFFF, Lowest}};
    SAFEARRAY* array = SafeArrayCreate(VT_VARIANT, 2, none);
    ASSERT_NE(array, nullptr);
    EXPECT_EQ(boundsOf(array, 1).upper, 6);
    const LONG place[] = {7, 0};
    COleVariant value;
    EXPECT_EQ(SafeArrayGetElement(array, place, &value), DISP_E_BADINDEX);
    SAFEARRAY* copy = nullptr;
    EXPECT_EQ(SafeArrayCopy(array, &copy), S_OK);
    SafeArrayDestroy(copy);
    SafeArrayDestroy(array);

    const std::vector<SAFEARRAYBOUND> many(60, SAFEARRAYBOUND{1, -1});
    array = SafeArrayCreate(VT_I2, 60, many.data());
    ASSERT_NE(array, nullptr);
    const std::vector<LONG> index(60, -1);
    SHORT number = 1234;
    EXPECT_EQ(SafeArrayPutElement(array, index.data(), &number), S_OK);
    EXPECT_EQ(*static_cast<SHORT*>(array->pvData), 1234);
    EXPECT_EQ(boundsOf(array, 60).upper, -1);
    SafeArrayDestroy(array);

    const SAFEARRAYBOUND last[] = {{1, Highest}};
    array = SafeArrayCreate(VT_UI1, 1, last);
    ASSERT_NE(array, nullptr);
    EXPECT_EQ(boundsOf(array, 1).upper, Highest);
    SafeArrayDestroy(array);

    const SAFEARRAYBOUND tooHigh[] = {{2, Highest}};
    const SAFEARRAYBOUND tooLow[] = {{0, Lowest}};
    const std::vector<SAFEARRAYBOUND> huge(3, SAFEARRAYBOUND{0x7FFFFFFF, 0});
    EXPECT_EQ(SafeArrayCreate(VT_I4, 1, tooHigh), nullptr);
    EXPECT_EQ(SafeArrayCreate(VT_I4, 1, tooLow), nullptr);
    EXPECT_EQ(SafeArrayCreate(VT_I4, 3, huge.data()), nullptr);
    EXPECT_EQ(SafeArrayCreate(VT_I4, 0, last), nullptr);
    EXPECT_EQ(SafeArrayCreate(VT_I4, 1, nullptr), nullptr);
    for (VARTYPE type : {VT_EMPTY, VT_NULL, VT_ARRAY, VT_BYREF, VT_TYPEMASK})
        EXPECT_EQ(SafeArrayCreate(type, 1, last), nullptr) << type;

    // Null stands for no array.
    EXPECT_EQ(SafeArrayDestroy(nullptr), S_OK);
    EXPECT_EQ(SafeArrayGetDim(nullptr), 0u);
    EXPECT_EQ(SafeArrayCopy(nullptr, &copy), S_OK);
    EXPECT_EQ(copy, nullptr);
    EXPECT_EQ(SafeArrayLock(nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetElement(nullptr, place, &value), E_INVALIDARG);
}

TEST_F(SafeArrayTest, ElementsAreCopiedAndCounted) {
    const SAFEARRAYBOUND two[] = {{2, 0}};
    const LONG first[] = {0};
    const LONG second[] = {1};

    SAFEARRAY* texts = SafeArrayCreate(VT_BSTR, 1, two);
    BSTR text = SysAllocStringLen(u"a\0b", 3);
    EXPECT_EQ(SafeArrayPutElement(texts, first, text), S_OK);
    EXPECT_EQ(SafeArrayPutElement(texts, first, text), S_OK);
    SysFreeString(text);
    BSTR got = nullptr;
    EXPECT_EQ(SafeArrayGetElement(texts, first, &got), S_OK);
    EXPECT_EQ(SysStringLen(got), 3u);
    SysFreeString(got);
    EXPECT_EQ(SafeArrayGetElement(texts, second, &got), S_OK);
    EXPECT_EQ(got, nullptr);
    SafeArrayDestroy(texts);

    for (VARTYPE type : {VT_UNKNOWN, VT_DISPATCH}) {
        auto* object = new CountedObject;
        SAFEARRAY* objects = SafeArrayCreate(type, 1, two);
        void* pointer = type == VT_UNKNOWN ? static_cast<void*>(static_cast<IUnknown*>(object))
                                           : static_cast<void*>(static_cast<IDispatch*>(object));
        SafeArrayPutElement(objects, first, pointer);
        SafeArrayPutElement(objects, first, pointer);
        SafeArrayPutElement(objects, second, pointer);
        EXPECT_EQ(object->references, 3u);
        SafeArrayPutElement(objects, second, nullptr);
        EXPECT_EQ(object->references, 2u);
        IDispatch* out = nullptr;
        SafeArrayGetElement(objects, first, &out);
        EXPECT_EQ(object->references, 3u);
        out->Release();
        SAFEARRAY* copy = nullptr;
        SafeArrayCopy(objects, &copy);
        EXPECT_EQ(object->references, 3u);
        SafeArrayDestroy(copy);
        SafeArrayDestroy(objects);
        EXPECT_EQ(object->Release(), 0u);
    }

    VARTYPE type = 0;
    SAFEARRAY* values = SafeArrayCreate(VT_VARIANT, 1, two);
    EXPECT_EQ(SafeArrayGetVartype(values, &type), S_OK);
    EXPECT_EQ(type, VT_VARIANT);
    COleVariant value("in a value");
    EXPECT_EQ(SafeArrayPutElement(values, first, &value), S_OK);
    EXPECT_EQ(SafeArrayPutElement(values, first, nullptr), E_INVALIDARG);
    COleVariant out("before");
    EXPECT_EQ(SafeArrayGetElement(values, first, &out), S_OK);
    EXPECT_TRUE(automation::TextOf(out.bstrVal) == "in a value");
    SafeArrayDestroy(values);
}

TEST_F(SafeArrayTest, LockedArraysStay) {
    const SAFEARRAYBOUND one[] = {{1, 0}};
    COleVariant value;
    value.parray = SafeArrayCreate(VT_I4, 1, one);
    value.vt = VT_ARRAY | VT_I4;
    EXPECT_EQ(SafeArrayUnlock(value.parray), E_UNEXPECTED);
    SafeArrayLock(value.parray);
    SafeArrayLock(value.parray);
    EXPECT_EQ(SafeArrayDestroy(value.parray), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(VariantClear(&value), DISP_E_ARRAYISLOCKED);
    const COleVariant other("x");
    EXPECT_EQ(VariantCopy(&value, &other), DISP_E_ARRAYISLOCKED);
    COleVariant copy(value);
    EXPECT_EQ(copy.parray->cLocks, 0u);
    SafeArrayUnlock(value.parray);
    SafeArrayUnlock(value.parray);
    EXPECT_EQ(VariantClear(&value), S_OK);
}

TEST_F(SafeArrayTest, AnObjectMayReachItsArrayWhileItEnds) {
    const SAFEARRAYBOUND one[] = {{1, 0}};
    const LONG index[] = {0};
    auto* object = new CountedObject;
    SAFEARRAY* array = SafeArrayCreate(VT_DISPATCH, 1, one);
    SafeArrayPutElement(array, index, static_cast<IDispatch*>(object));
    object->Release();
    int calls = 0;
    object->onRelease = [&] {
        ++calls;
        EXPECT_EQ(SafeArrayDestroy(array), DISP_E_ARRAYISLOCKED);
        IDispatch* out = nullptr;
        EXPECT_EQ(SafeArrayGetElement(array, index, &out), S_OK);
        EXPECT_EQ(out, nullptr);
    };
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
    EXPECT_EQ(calls, 1);
}

// Deep enough to end any native stack that would follow it.
TEST_F(SafeArrayTest, NestingOfAnyDepthIsCopiedAndDestroyed) {
    const SAFEARRAYBOUND one[] = {{1, 0}};
    const LONG index[] = {0};
    auto* object = new CountedObject;
    COleVariant value(static_cast<IDispatch*>(object));
    for (int depth = 0; depth < 200'000; ++depth) {
        SAFEARRAY* array = SafeArrayCreate(VT_VARIANT, 1, one);
        void* slot = nullptr;
        SafeArrayAccessData(array, &slot);
        static_cast<VARIANT&>(*static_cast<VARIANT*>(slot)) = value.Detach();
        SafeArrayUnaccessData(array);
        value.vt = VT_ARRAY | VT_VARIANT;
        value.parray = array;
    }
    COleVariant copy(value);
    EXPECT_EQ(object->references, 3u);
    COleVariant inner;
    EXPECT_EQ(SafeArrayGetElement(copy.parray, index, &inner), S_OK);
    EXPECT_EQ(inner.vt, VT_ARRAY | VT_VARIANT);
    inner.Clear();
    value.Clear();
    copy.Clear();
    EXPECT_EQ(object->Release(), 0u);
}

// A value in the middle that cannot be copied: nothing of the half copy stays behind.
TEST_F(SafeArrayTest, AFailedCopyLeavesNothing) {
    const SAFEARRAYBOUND three[] = {{3, 0}};
    auto* object = new CountedObject;
    SAFEARRAY* array = SafeArrayCreate(VT_VARIANT, 1, three);
    auto* values = static_cast<VARIANT*>(array->pvData);
    values[0].vt = VT_DISPATCH;
    values[0].pdispVal = object;
    values[1].vt = VT_VARIANT; // no value may be this
    SAFEARRAY* copy = array;
    EXPECT_EQ(SafeArrayCopy(array, &copy), DISP_E_BADVARTYPE);
    EXPECT_EQ(copy, nullptr);
    EXPECT_EQ(object->references, 1u);
    EXPECT_EQ(array->cLocks, 0u);
    SafeArrayDestroy(array);
}

} // namespace
