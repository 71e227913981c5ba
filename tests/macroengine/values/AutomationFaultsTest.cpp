// Automation objects that fail, lie, come back or go away in the middle of a call. Whatever they
// do, the macro gets the stated result or error, and every reference is given back.

#include "macroengine/EngineFixture.h"
#include "system/platform/TestObjects.h"

#include <AutomationObject.h>

namespace {

/// Does in each call what the test tells it.
class Puppet final : public CountedObject {
public:
    HRESULT QueryInterface(REFIID iid, void** object) override {
        if (onQuery)
            return onQuery(iid, object);
        return CountedObject::QueryInterface(iid, object);
    }
    HRESULT GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* ids) override {
        *ids = 5;
        return onName;
    }
    HRESULT Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                   EXCEPINFO* exception, UINT* wrongArgument) override {
        ++calls;
        if (id == DISPID_NEWENUM)
            return onEnumerator ? onEnumerator(result) : DISP_E_MEMBERNOTFOUND;
        return onInvoke ? onInvoke({flags, *arguments, result, exception, wrongArgument}) : S_OK;
    }

    struct Call {
        WORD flags;
        DISPPARAMS& arguments;
        VARIANT* result;
        EXCEPINFO* exception;
        UINT* wrongArgument;
    };

    HRESULT onName = S_OK;
    std::function<HRESULT(REFIID, void**)> onQuery;
    std::function<HRESULT(VARIANT*)> onEnumerator;
    std::function<HRESULT(const Call&)> onInvoke;
    int calls = 0;
};

/// An enumerator that does what the test tells it.
class Source final : public IEnumVARIANT {
public:
    explicit Source(std::function<HRESULT(VARIANT*, ULONG*)> next) : m_Next(std::move(next)) {
        ++CountedObject::s_Alive;
    }

    HRESULT QueryInterface(REFIID iid, void** object) override {
        *object = nullptr;
        if (iid != IID_IUnknown && iid != IID_IEnumVARIANT)
            return E_NOINTERFACE;
        AddRef();
        *object = static_cast<IEnumVARIANT*>(this);
        return S_OK;
    }
    ULONG AddRef() override { return ++m_References; }
    ULONG Release() override {
        const ULONG left = --m_References;
        if (left == 0)
            delete this;
        return left;
    }
    HRESULT Next(ULONG, VARIANT* value, ULONG* fetched) override {
        const std::function<HRESULT(VARIANT*, ULONG*)> next = m_Next; // this may end meanwhile
        return next(value, fetched);
    }
    HRESULT Skip(ULONG) override { return E_NOTIMPL; }
    HRESULT Reset() override { return E_NOTIMPL; }
    HRESULT Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

private:
    ~Source() { --CountedObject::s_Alive; }

    std::function<HRESULT(VARIANT*, ULONG*)> m_Next;
    ULONG m_References = 1;
};

class AutomationFaults : public EngineTest {
protected:
    AutomationFaults() {
        automation::RegisterClass("Test.Puppet", [this] {
            puppet->AddRef();
            return puppet;
        });
    }
    ~AutomationFaults() override {
        automation::RevokeClass("Test.Puppet");
        puppet->onInvoke = nullptr;
        EXPECT_EQ(puppet->Release(), 0u);
        EXPECT_EQ(CountedObject::s_Alive, 0);
    }

    /// Runs a macro that has the puppet as `obj`, and forgets its variables.
    Lines run(const std::string& text) {
        Lines lines = runText("Set obj = CreateObject(\"Test.Puppet\")\n" + text);
        runText("");
        EXPECT_EQ(puppet->references, 1u) << text;
        return lines;
    }
    /// The puppet's members give this value.
    void give(VARIANT value) {
        puppet->onInvoke = [value](const Puppet::Call& call) {
            return call.result ? VariantCopy(call.result, &value) : S_OK;
        };
    }
    static VARIANT arrayOf(VARTYPE type, std::vector<SAFEARRAYBOUND> bounds) {
        VARIANT value{};
        value.vt = static_cast<VARTYPE>(VT_ARRAY | type);
        value.parray = SafeArrayCreate(type, static_cast<UINT>(bounds.size()), bounds.data());
        EXPECT_TRUE(value.parray);
        return value;
    }

    Puppet* puppet = new Puppet;
};

TEST_F(AutomationFaults, EachFailureHasItsText) {
    const struct {
        HRESULT code;
        const char* ofName; // what the macro reads when the name fails
        const char* ofCall;
    } table[] = {
        {S_FALSE, "", ""},
        {E_FAIL, "GetIDsOfNames failed", "Invoke failed"},
        {E_OUTOFMEMORY, "GetIDsOfNames failed", "Invoke failed"},
        {E_UNEXPECTED, "GetIDsOfNames failed", "Invoke failed"},
        {DISP_E_UNKNOWNNAME, "Error: Member not found: ", "Invoke failed"},
        {DISP_E_MEMBERNOTFOUND, "GetIDsOfNames failed", "Error: Member not found: "},
        {DISP_E_BADPARAMCOUNT, "GetIDsOfNames failed", "Error: Incorrect function argument(s): "},
        {DISP_E_TYPEMISMATCH, "GetIDsOfNames failed", "Type mismatch"},
        {DISP_E_PARAMNOTOPTIONAL, "GetIDsOfNames failed", "Invoke failed"},
        {DISP_E_EXCEPTION, "GetIDsOfNames failed", "Invoke failed"},
        {std::numeric_limits<HRESULT>::min(), "GetIDsOfNames failed", "Invoke failed"},
    };
    for (const auto& row : table) {
        for (const char* text : {"x = obj.M", "x = obj.M(obj, \"t\", Array(obj))", "obj.M = obj.M",
                                 "Set obj.M = obj", "obj.M(obj) = 1", "obj.M 1, , obj"}) {
            const auto expect = [](const char* error) { return *error ? Lines{error} : Lines(); };
            puppet->onName = row.code;
            puppet->onInvoke = nullptr;
            EXPECT_EQ(run(text), expect(row.ofName)) << text << row.code;
            puppet->onName = S_OK;
            puppet->onInvoke = [&](const Puppet::Call&) { return row.code; };
            EXPECT_EQ(run(text), expect(row.ofCall)) << text << row.code;
        }
    }
}

TEST_F(AutomationFaults, AFailureMayLeaveAResultAndTexts) {
    puppet->onInvoke = [this](const Puppet::Call& call) {
        if (call.result)
            *call.result = COleVariant(static_cast<IDispatch*>(puppet)).Detach();
        call.exception->bstrDescription = SysAllocString(u"late");
        call.exception->bstrHelpFile = SysAllocString(u"help");
        call.exception->pfnDeferredFillIn = [](EXCEPINFO* info) {
            info->bstrSource = SysAllocString(u"Puppet");
            return S_OK;
        };
        return DISP_E_EXCEPTION;
    };
    for (const char* text : {"x = obj.M", "obj.M = 1"}) {
        try {
            execute(textSource(std::string("Set obj = CreateObject(\"Test.Puppet\")\n") + text));
            ADD_FAILURE() << "no error";
        } catch (const MacroException& error) {
            EXPECT_EQ(error.GetDetail(), "Puppet: late");
        }
    }
    run("");
}

TEST_F(AutomationFaults, TheDetailTellsWhatTheTextHasNoPlaceFor) {
    const auto failureOf = [this](const char* text) {
        try {
            execute(textSource(std::string("Set obj = CreateObject(\"Test.Puppet\")\n") + text));
        } catch (const MacroException& error) {
            return std::string(error.GetText().View()) + "|" + error.GetDetail().c_str();
        }
        return std::string("no error");
    };
    puppet->onName = DISP_E_UNKNOWNNAME;
    EXPECT_EQ(failureOf("x = obj.Colour"),
              "Error: Member not found: |The object has no member 'Colour'");
    puppet->onName = S_OK;
    const struct {
        HRESULT code;
        UINT place;
        const char* text;
        const char* failure;
    } table[] = {
        {DISP_E_TYPEMISMATCH, 1, "obj.M 1, 2, 3", "Type mismatch|Argument 2 is of a wrong type"},
        {DISP_E_PARAMNOTOPTIONAL, 2, "x = obj.M(, 2, 3)", "Invoke failed|Argument 1 is missing"},
        {DISP_E_TYPEMISMATCH, 0, "obj.M(1) = 2", "Type mismatch|The new value is of a wrong type"},
        {DISP_E_TYPEMISMATCH, 1, "obj.M(1) = 2", "Type mismatch|Argument 1 is of a wrong type"},
        {DISP_E_TYPEMISMATCH, 9, "obj.M 1", "Type mismatch|"},
        {E_FAIL, 0, "obj.M 1", "Invoke failed|"},
    };
    for (const auto& row : table) {
        puppet->onInvoke = [&](const Puppet::Call& call) {
            *call.wrongArgument = row.place;
            return row.code;
        };
        EXPECT_EQ(failureOf(row.text), row.failure) << row.text;
    }
    run("");
}

TEST_F(AutomationFaults, EveryTypeTagHasItsKind) {
    const std::map<int, std::string> kinds{
        {VT_I2, "Integer"}, {VT_I4, "Integer"},  {VT_I8, "Integer"},   {VT_R4, "Double"},
        {VT_R8, "Double"},  {VT_BSTR, "String"}, {VT_BOOL, "Boolean"}, {VT_UI8, "Handle"},
    };
    for (const int flags : {0, VT_ARRAY + 0, VT_BYREF + 0, VT_ARRAY | VT_BYREF, 0x1000, 0x8000}) {
        for (int type = 0; type <= 80; ++type) {
            VARIANT value{};
            value.vt = static_cast<VARTYPE>(type | flags);
            puppet->onInvoke = [&](const Puppet::Call& call) {
                *call.result = value;
                return S_OK;
            };
            const auto kind = flags == 0 ? kinds.find(type) : kinds.end();
            UI_MacroVariant read;
            read.init(value);
            const std::string expected = kind == kinds.end() ? "Empty" : kind->second;
            const Lines lines = run("x = obj.M\nLog.Add IsEmpty(x)");
            EXPECT_EQ(lines, Lines{expected == "Empty" ? "True" : "False"}) << value.vt;
            EXPECT_EQ(read.IsEmpty(), expected == "Empty") << value.vt;
        }
    }
}

TEST_F(AutomationFaults, AnObjectMayHandBackItself) {
    give(COleVariant(static_cast<IDispatch*>(puppet)));
    EXPECT_EQ(run("Set a = obj.M.M(obj).M\nLog.Add a Is obj, obj.M Is obj.M\n"
                  "Dim all(2)\nSet all(1) = a : Set all(2) = all(1)\n"
                  "all(2).M = all(1) : Set all(2).M = obj\n"
                  "With obj.M\n Log.Add .M Is obj\nEnd With"),
              (Lines{"True", "True", "True"}));
    // As an unknown object with no other face it stays one.
    puppet->onQuery = [this](REFIID iid, void** object) {
        *object = nullptr;
        if (iid == IID_IEnumVARIANT)
            return E_NOINTERFACE;
        return puppet->CountedObject::QueryInterface(iid, object);
    };
    give(COleVariant(static_cast<IUnknown*>(puppet)));
    EXPECT_EQ(run("Set a = obj.M\nLog.Add a Is obj"), Lines{"True"});
    // Read as a value it gives itself for ever: the first answer counts.
    give(COleVariant(static_cast<IDispatch*>(puppet)));
    puppet->calls = 0;
    run("x = obj\n");
    EXPECT_LE(puppet->calls, 2);
}

TEST_F(AutomationFaults, AnObjectMayEndInTheMiddleOfItsCall) {
    for (const char* text :
         {"x = obj.M(obj)", "obj.M = 1", "obj.M", "Set obj.M = obj", "y = obj.M & obj.M(1)"}) {
        puppet->onInvoke = [](const Puppet::Call&) {
            if (UI_MacroVariant* variable = processor().LookupVar(SYS_StrNoCase("obj")))
                variable->Clear();
            return S_OK;
        };
        const std::string make = "Set obj = CreateObject(\"Test.Puppet\")\n";
        runText(make + text + "\nLog.Add IsEmpty(obj)");
        if (std::string_view(text) != "y = obj.M & obj.M(1)") {
            EXPECT_EQ(log.lines, Lines{"True"}) << text;
        }
        EXPECT_EQ(puppet->references, 1u) << text;
    }
    // Its last reference goes while it runs.
    auto* brief = new Puppet;
    brief->onInvoke = [](const Puppet::Call& call) {
        processor().LookupVar(SYS_StrNoCase("b"))->Clear();
        *call.result = COleVariant(LONG{4}).Detach();
        return S_OK;
    };
    automation::RegisterClass("Test.Brief", [brief] { return brief; });
    EXPECT_EQ(runText("Set b = CreateObject(\"Test.Brief\")\nLog.Add b.M"), Lines{"4"});
    automation::RevokeClass("Test.Brief");
    EXPECT_EQ(CountedObject::s_Alive, 1);
}

TEST_F(AutomationFaults, AnObjectMayRunMacros) {
    puppet->onInvoke = [this](const Puppet::Call& call) {
        UI_Macro inner(true);
        inner.Register(log, "Log");
        inner.ExecuteMacroString("For i = 1 To 3\n s = s & i\nNext\nLog.Add s");
        if (call.result)
            *call.result = COleVariant("done").Detach();
        return S_OK;
    };
    EXPECT_EQ(run("s = obj.M(1) & obj.M(2)\nLog.Add s"), (Lines{"123", "123", "donedone"}));

    // Onto the running macro itself: refused, and the refusal ends the macro.
    puppet->onInvoke = [this](const Puppet::Call&) {
        macro.ExecuteMacroString("x = 1");
        return S_OK;
    };
    EXPECT_EQ(run("obj.M obj, \"text\""), Lines{"Error: Illegal nesting: "});
    // Its names may be read, and what was passed may change meanwhile.
    puppet->onInvoke = [](const Puppet::Call& call) {
        UI_MacroVariant one(1);
        *call.result =
            static_cast<COleVariant>(processor().Evaluate("list", &one, 1) + one).Detach();
        processor().LookupVar(SYS_StrNoCase("list"))->Clear();
        return S_OK;
    };
    EXPECT_EQ(run("list = Array(1, 2)\nLog.Add obj.M(list, obj)"), Lines{"3"});
    puppet->onInvoke = [](const Puppet::Call&) -> HRESULT { throw 7; };
    EXPECT_THROW(run("x = obj.M(obj, \"t\")"), int);
    puppet->onInvoke = nullptr;
    run("");
}

TEST_F(AutomationFaults, AnObjectMayEvaluateInTheMiddleOfItsCall) {
    const auto evaluate = [this](const char* text, bool sideEffects) {
        return textOf(macro.Eval(textSource(text), sideEffects));
    };
    // In the frame that made the call, which then goes on as if nothing had happened.
    const std::string inner = "Sub s(ByVal n)\n t = n\n y = obj.M(n, t) + obj.M(1)\n"
                              " Log.Add n, t, y\nEnd Sub\n"
                              "Function twice(n)\n twice = n * 2\nEnd Function\n"
                              "For i = 1 To 2\n s i\nNext\nLog.Add i";
    puppet->onInvoke = [&](const Puppet::Call& call) {
        const std::string before = evaluate("n & t & i", false);
        evaluate("t = t + 10", true);
        *call.result = COleVariant(static_cast<LONG>(macro.Eval(textSource("twice(n)"), true)));
        Lines seen{before, evaluate("t", false)};
        for (const std::string& line : seen)
            log.lines.push_back(line);
        return S_OK;
    };
    EXPECT_EQ(run(inner), (Lines{"111", "11", "1111", "21", "1", "21", "4", "222", "12", "2122",
                                 "22", "2", "22", "8", "3"}));
    // The object itself, again and again.
    int depth = 0;
    puppet->onInvoke = [&](const Puppet::Call& call) {
        if (++depth < 20)
            *call.result = static_cast<COleVariant>(macro.Eval(textSource("obj.M(x) + 1"), true));
        else
            *call.result = COleVariant(LONG{1}).Detach();
        return S_OK;
    };
    EXPECT_EQ(run("x = 3\nLog.Add obj.M(obj)"), Lines{"20"});
    EXPECT_EQ(depth, 20);
    // Without an end it ends by the limit on nested runs, and all the calls with it.
    puppet->onInvoke = [&](const Puppet::Call& call) {
        *call.result = static_cast<COleVariant>(macro.Eval(textSource("obj.M"), true));
        return S_OK;
    };
    EXPECT_EQ(run("Log.Add obj.M(obj)"), Lines{"Error: Illegal nesting: "});
    // What an evaluation raises ends the macro like any error of the call, unless it is caught.
    bool isCaught = false;
    puppet->onInvoke = [&](const Puppet::Call&) {
        try {
            evaluate("nobody + 1", false);
        } catch (const MacroException&) {
            if (!isCaught)
                throw;
        }
        return S_OK;
    };
    EXPECT_EQ(run("obj.M obj\nLog.Add 1"), Lines{"Variable is undefined : 'nobody'"});
    isCaught = true;
    EXPECT_EQ(run("obj.M obj\nobj.N(1) = obj\nLog.Add 1"), Lines{"1"});
    puppet->onInvoke = nullptr;
}

TEST_F(AutomationFaults, AnObjectMayStopTheMacroInTheMiddleOfItsCall) {
    for (const char* text :
         {"x = obj.M(obj, Array(obj))", "obj.M = obj", "Set obj.M = obj", "obj.M.M.M obj",
          "With obj.M\n .M 1\nEnd With", "y = obj.M & obj.M(1)", "Set a = obj.M\n"}) {
        for (const bool byException : {false, true}) {
            puppet->onInvoke = [&](const Puppet::Call& call) {
                if (call.result)
                    *call.result = COleVariant(static_cast<IDispatch*>(puppet)).Detach();
                macro.Stop();
                if (byException)
                    throw MacroStopException();
                return S_OK;
            };
            EXPECT_EQ(run(std::string(text) + "\nLog.Add \"went on\""), Lines()) << text;
        }
    }
    puppet->onEnumerator = [&](VARIANT* result) {
        *result = automation::Own(static_cast<IUnknown*>(new Source([&](VARIANT*, ULONG*) {
                      macro.Stop();
                      return S_FALSE;
                  }))).Detach();
        return S_OK;
    };
    puppet->onInvoke = nullptr;
    EXPECT_EQ(run("For Each e In obj\n Log.Add 1\nNext\nLog.Add 2"), Lines());
}

TEST_F(AutomationFaults, ArraysOfEveryShapeArrive) {
    const auto shapeOf = [&](VARIANT value, const std::string& text) {
        give(value);
        const Lines lines = run("x = obj.M\n" + text);
        puppet->onInvoke = nullptr;
        VariantClear(&value);
        return lines;
    };
    EXPECT_EQ(shapeOf(arrayOf(VT_I4, std::vector<SAFEARRAYBOUND>(1, {0, 0})),
                      "Log.Add LBound(obj.M), UBound(obj.M)\nFor Each e In obj.M\n"
                      " Log.Add e\nNext"),
              (Lines{"0", "-1"}));
    EXPECT_EQ(shapeOf(arrayOf(VT_VARIANT, {{2, -3}, {1, -1}}),
                      "Log.Add LBound(x, 1), UBound(x, 1), UBound(x, 2), IsEmpty(x(-2, -1))"),
              (Lines{"-3", "-2", "-1", "True"}));
    // Null pointers are Empty, a null text is an empty one.
    for (const auto& [type, expected] :
         {std::pair{VT_DISPATCH, "True"}, {VT_UNKNOWN, "True"}, {VT_BSTR, "False"}})
        EXPECT_EQ(shapeOf(arrayOf(static_cast<VARTYPE>(type), {{2, 0}}), "Log.Add IsEmpty(x(1))"),
                  Lines{expected});
    EXPECT_EQ(shapeOf(arrayOf(VT_I2, std::vector<SAFEARRAYBOUND>(60, {1, 2})),
                      "Log.Add LBound(x, 60), UBound(x, 60)\nn = 0\nFor Each e In x\n"
                      " n = n + 1\nNext\nLog.Add n\nobj.M = x"),
              (Lines{"2", "2", "1"}));
    std::vector<SAFEARRAYBOUND> hollow(60, {2, 0});
    hollow[30].cElements = 0;
    const Lines none = shapeOf(arrayOf(VT_I2, hollow), "n = 0\nFor Each e In x\n n = 1\nNext\n"
                                                       "Log.Add n");
    EXPECT_TRUE(none == Lines{"0"} || none == Lines{"Error: Unknown error: out of memory"});
    EXPECT_EQ(shapeOf(arrayOf(VT_I2, {{5000, 0}, {5000, 0}}), ""),
              Lines{"Error: Unknown error: out of memory"});
}

TEST_F(AutomationFaults, EnumeratorsMayFailOrNeverEnd) {
    int given = 0;
    const auto count = [&](VARIANT* value, ULONG* fetched) {
        *value = COleVariant(static_cast<LONG>(++given)).Detach();
        *fetched = 1;
        return S_OK;
    };
    std::function<HRESULT(VARIANT*, ULONG*)> next;
    puppet->onEnumerator = [&](VARIANT* result) {
        *result = automation::Own(static_cast<IUnknown*>(new Source(next))).Detach();
        return S_OK;
    };
    const auto walk = [&](std::function<HRESULT(VARIANT*, ULONG*)> how) {
        given = 0;
        next = std::move(how);
        return run("For Each e In obj\n Log.Add e\n If e = 3 Then Exit For\nNext\nLog.Add \"end\"");
    };
    EXPECT_EQ(walk(count), (Lines{"1", "2", "3", "end"}));
    EXPECT_EQ(walk([&](VARIANT* value, ULONG* fetched) {
                  return given == 2 ? E_FAIL : count(value, fetched);
              }),
              (Lines{"1", "2", "Invoke failed"}));
    EXPECT_EQ(walk([&](VARIANT* value, ULONG* fetched) {
                  return given == 2 ? S_FALSE : count(value, fetched);
              }),
              (Lines{"1", "2", "end"}));
    EXPECT_EQ(walk([](VARIANT*, ULONG* fetched) {
                  *fetched = 0;
                  return S_OK;
              }),
              (Lines{"end"}))
        << "nothing was given, whatever the result says";
    EXPECT_EQ(walk([&](VARIANT* value, ULONG* fetched) {
                  processor().LookupVar(SYS_StrNoCase("obj"))->Clear();
                  return count(value, fetched);
              }),
              (Lines{"1", "2", "3", "end"}));
    EXPECT_EQ(walk([this](VARIANT* value, ULONG* fetched) {
                  *value = COleVariant(static_cast<IDispatch*>(puppet)).Detach();
                  *fetched = 1;
                  return E_FAIL;
              }),
              (Lines{"Invoke failed"}));
    EXPECT_THROW(walk([](VARIANT*, ULONG*) -> HRESULT { throw 7; }), int);
    run("");

    // What is no enumerator.
    const VARIANT others[] = {VARIANT{}, COleVariant(LONG{4}).Detach(),
                              COleVariant(static_cast<IUnknown*>(nullptr)).Detach()};
    for (const VARIANT& other : others) {
        puppet->onEnumerator = [&](VARIANT* result) { return VariantCopy(result, &other); };
        EXPECT_EQ(walk(count), Lines{"Object is not itarable"}) << other.vt;
    }
    puppet->onEnumerator = [this](VARIANT* result) {
        *result = COleVariant(static_cast<IUnknown*>(puppet)).Detach();
        return S_OK;
    };
    EXPECT_EQ(walk(count), Lines{"Object is not itarable"});
    puppet->onEnumerator = [](VARIANT*) { return E_FAIL; };
    EXPECT_EQ(walk(count), Lines{"Object is not itarable"});
}

TEST_F(AutomationFaults, MacrosMakeAndFindObjects) {
    const char* const ask = "\nLog.Add IsEmpty(x)\nSet y = x\nLog.Add y Is Nothing";
    const auto tries = [&](const std::string& call) { return run("x = " + call + ask); };
    const auto finds = [&](const std::string& call) {
        return run("Set y = " + call + "\nLog.Add y Is Nothing, y Is obj");
    };
    const Lines none{"True", "True"};
    automation::RegisterClass("Test.None", [] { return nullptr; });
    automation::RegisterClass("Test.Throws", []() -> IUnknown* { throw 5; });
    automation::RegisterClass("Test.Items", [] { return automation::NewEnumerator({}); });
    automation::RegisterClass("Test.Once", [] {
        automation::RevokeClass("Test.Once");
        return new Puppet;
    });
    for (const char* call :
         {"CreateObject(\"Test.Nobody\")", "CreateObject(\"\")", "CreateObject(\"Test.None\")",
          "CreateObject(\"Test.Throws\")", "CreateObject(\"Test.Items\")",
          "CreateObject(\"Test.Puppet\", \"elsewhere\")", "GetObject(\"no.doc\")",
          "GetObject(\"\")", "GetObject(, \"Test.Puppet\")", "GetObject(\"\", \"Test.Nobody\")",
          "GetObject(\"no.doc\", \"Test.Puppet\")"})
        EXPECT_EQ(tries(call), none) << call;
    EXPECT_EQ(run("Set a = CreateObject(\"Test.Once\")\nSet b = CreateObject(\"Test.Once\")\n"
                  "Log.Add a Is Nothing, b Is Nothing"),
              (Lines{"False", "True"}));

    const Lines found{"False", "True"};
    EXPECT_EQ(finds("CreateObject(\"TEST.puppet\", \"\")"), found);
    EXPECT_EQ(finds("GetObject(\"\", \"Test.Puppet\")"), found) << "makes one";
    puppet->AddRef();
    automation::RegisterRunning("a.doc", puppet);
    automation::RegisterActive("Test.Puppet", puppet);
    puppet->references -= 3; // those of the registry and of this line stay out of the count
    EXPECT_EQ(finds("GetObject(\"A.Doc\")"), found);
    EXPECT_EQ(finds("GetObject(\"a.doc\", \"Test.Puppet\")"), found);
    EXPECT_EQ(finds("GetObject(, \"Test.Puppet\")"), found);
    puppet->references += 3;
    automation::RevokeRunning("a.doc");
    automation::RevokeActive("Test.Puppet");
    puppet->Release();
    for (const char* call : {"CreateObject()", "CreateObject(1, 2, 3)", "GetObject()"})
        EXPECT_EQ(run(std::string("x = ") + call), Lines{"Error: Incorrect function argument(s): "})
            << call;
    for (const char* name : {"Test.None", "Test.Throws", "Test.Items", "Test.Once"})
        automation::RevokeClass(name);
}

} // namespace
