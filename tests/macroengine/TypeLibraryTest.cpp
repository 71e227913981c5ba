// Constants of a host's type library.

#include "EngineFixture.h"
#include "system/platform/TestObjects.h"

#include <SYS_Unicode.h>

namespace {

int s_Given = 0; // descriptions that have not come back

/// Reference counting of an interface whose objects live as long as the test.
template <class I> class Standing : public I {
public:
    HRESULT QueryInterface(REFIID, void** object) override {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    ULONG AddRef() override { return ++references; }
    ULONG Release() override { return --references; }

    ULONG references = 0;
};

class Info final : public Standing<ITypeInfo> {
public:
    void ReleaseFuncDesc(FUNCDESC*) override { --s_Given; }
    void ReleaseVarDesc(VARDESC*) override { --s_Given; }
};

class Names final : public Standing<ITypeComp> {
public:
    HRESULT Bind(LPOLESTR wide, ULONG, WORD flags, ITypeInfo** info, DESCKIND* kind,
                 BINDPTR* binding) override {
        EXPECT_EQ(flags, INVOKE_PROPERTYGET);
        ++asked;
        const SYS_StrNoCase name(SYS_FromUtf16(wide));
        *kind = DESCKIND_NONE;
        if (name == "broken")
            return E_FAIL;
        if (name == "inner") {
            *kind = DESCKIND_TYPECOMP;
            binding->lptcomp = this;
            AddRef();
        } else if (name == "action") {
            *kind = DESCKIND_FUNCDESC;
            binding->lpfuncdesc = reinterpret_cast<FUNCDESC*>(&description);
        } else if (name == "field") { // of an object: it has a place, and no value
            *kind = DESCKIND_VARDESC;
            description.varkind = VAR_PERINSTANCE;
            description.oInst = 8;
            binding->lpvardesc = &description;
        } else if (constants.count(name)) {
            *kind = DESCKIND_VARDESC;
            description.varkind = VAR_CONST;
            description.lpvarValue = &constants[name];
            binding->lpvardesc = &description;
        }
        if (*kind == DESCKIND_FUNCDESC || *kind == DESCKIND_VARDESC) {
            ++s_Given;
            *info = &owner;
            owner.AddRef();
        }
        return S_OK;
    }

    Info owner;
    VARDESC description{};
    std::map<SYS_StrNoCase, COleVariant> constants;
    int asked = 0;
};

class Library final : public Standing<ITypeLib> {
public:
    HRESULT GetTypeComp(ITypeComp** comp) override {
        if (!names) {
            *comp = nullptr;
            return E_FAIL;
        }
        names->AddRef();
        *comp = names;
        return S_OK;
    }

    Names* names = nullptr;
};

class TypeLibrary : public EngineTest {
protected:
    TypeLibrary() {
        library.names = &names;
        names.constants["acRed"] = COleVariant(LONG{255});
        names.constants["acTitle"] = COleVariant("title");
        names.constants["Log"] = COleVariant(LONG{1});
        names.constants["Len"] = COleVariant(LONG{1});
        names.constants["own"] = COleVariant(LONG{2});
        MacroHostHooks hooks;
        hooks.typeLib = [this]() -> ITypeLib* { return isOn ? &library : nullptr; };
        MacroSupport::SetHostHooks(hooks);
    }
    ~TypeLibrary() override {
        EXPECT_EQ(s_Given, 0);
        EXPECT_EQ(names.references + names.owner.references + library.references, 0u);
    }

    Names names;
    Library library;
    bool isOn = true;
};

TEST_F(TypeLibrary, StandsBehindObjectsAndFunctionsAndBeforeTheRest) {
    EXPECT_EQ(runText("Log.Add ACRED + 1, acTitle & \"!\"\nLog.Add Len(\"abc\")\n"
                      "own = 5\nLog.Add own\nFunction acRed\n acRed = 1\nEnd Function\n"
                      "Log.Add acRed"),
              (Lines{"256", "title!", "3", "2", "255"}));
    isOn = false;
    EXPECT_EQ(runText("own = 5\nLog.Add own\n"), Lines{"5"});
}

TEST_F(TypeLibrary, GetsBackWhatItGave) {
    EXPECT_EQ(runText("action = 3\ninner = 4\nbroken = 5\nfield = 6\n"
                      "Log.Add action + inner + broken + field"),
              Lines{"18"});
    EXPECT_GT(names.asked, 0);
    library.names = nullptr;
    EXPECT_EQ(runText("acRed = 6\nLog.Add acRed"), Lines{"6"});
}

} // namespace
