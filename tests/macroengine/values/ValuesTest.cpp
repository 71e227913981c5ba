// References, assignment and the life of values; conversions and operators have their own tests.

#include "../EngineFixture.h"
#include "ValueSamples.h"

#include <memory>
#include <utility>

namespace {

class ValuesTest : public ValueTest {
protected:
    static std::string showRead(const UI_MacroVariant& value) {
        const UI_MacroVariant* const read = value.GetRVal();
        return read ? Show(*read) : "null";
    }
    template <class Action> static std::string errorOf(Action action) {
        try {
            action();
        } catch (const MacroException& error) {
            return Text(error.GetText());
        }
        return "no error";
    }
    static void makeArray(UI_MacroVariant& value, int upper, bool dynamic) {
        SCC_Array<_ArraySubscript> bounds;
        bounds.Append({0, upper});
        MacroVariantArraySupport::CreateArray(&value, bounds, dynamic);
    }
};

const char* const kNoAssignment = "Object doesn't support this property or method";

} // namespace

TEST_F(ValuesTest, AValueIsSmall) { EXPECT_LE(sizeof(UI_MacroVariant), 64u); }

TEST_F(ValuesTest, AccessorsChangeOnlyTheirOwnPart) {
    EXPECT_EQ(UI_MacroVariant(true).GetIntVal(), -1);
    UI_MacroVariant value("text");
    value.SetIntVal(5);
    EXPECT_EQ(value.GetType(), vvtInteger);
    value.SetType(vvtString);
    EXPECT_EQ(value.GetStringVal(), "text");
    EXPECT_FALSE(value.SetToPropertyGet());
    value.SetFunctionRefVal("f", nullptr);
    EXPECT_EQ(value.GetFunctionHandler(), nullptr); // a stale number is no handler
    EXPECT_EQ(value.GetFunctionName(), "f");
    value.Clear();
    EXPECT_EQ(Show(value), "Empty");
    EXPECT_EQ(value.GetFunctionName(), "");

    AssertRecorder asserts;
    EXPECT_EQ(UI_MacroVariant(5).GetStringVal(), "");
    EXPECT_EQ(UI_MacroVariant("x").GetExecScriptVal(), "x");
    value.SetLValueVal(&value);
    EXPECT_EQ(asserts.Take().size(), 3u);
    EXPECT_NE(value.getRefVal(), &value);
}

TEST_F(ValuesTest, TheThreeConstantsNeverChange) {
    const std::pair<UI_MacroVariantParam*, const char*> constants[] = {
        {&UI_MacroVariant::Empty(), "Empty"},
        {&UI_MacroVariant::Null(), "Null"},
        {&UI_MacroVariant::Nothing(), "Nothing"},
    };
    for (const auto& [constant, shown] : constants) {
        EXPECT_TRUE(constant->isConstant()) << shown;
        EXPECT_EQ(constant->GetLVal(), nullptr) << shown;
        *constant = UI_MacroVariant(5);
        constant->Assign(6);
        constant->SetObjectRef(UI_MacroVariant::Nothing());
        EXPECT_EQ(Show(*constant), shown);
    }
    EXPECT_TRUE(UI_MacroVariant::Empty().IsEmpty());
    EXPECT_FALSE(UI_MacroVariant::Null().IsEmpty());
    EXPECT_EQ(UI_MacroVariant::Null().GetRVal(), nullptr);
    EXPECT_EQ(UI_MacroVariant::Nothing().GetRVal(), &UI_MacroVariant::Nothing());
    EXPECT_EQ(&UI_MacroVariant::Empty(), &UI_MacroVariant::Empty());
}

TEST_F(ValuesTest, WhatAValueReadsAndWhereItWrites) {
    UI_MacroVariant plain(1);
    UI_MacroVariant toPlain(&plain);
    UI_MacroVariant toReference(&toPlain);
    UI_MacroVariantParam variable(UI_MacroVariant(2), false);
    UI_MacroVariantParam alias(UI_MacroVariant(&variable), false);
    UI_MacroVariantParam constant(UI_MacroVariant(3), true);
    UI_MacroVariant toConstant(&constant);
    UI_MacroVariant null(static_cast<UI_MacroVariant*>(nullptr));
    UI_MacroVariantParam constantNull(null, true);
    struct Row {
        const char* name;
        UI_MacroVariant& value;
        UI_MacroVariant* read;
        UI_MacroVariant* write;
    };
    const Row rows[] = {
        {"plain", plain, &plain, &plain},
        {"reference", toPlain, &plain, &plain},
        {"reference to a reference", toReference, &plain, &plain},
        {"variable", variable, &variable, &variable},
        {"alias", alias, &variable, &variable},
        {"constant", constant, &constant, nullptr},
        {"reference to a constant", toConstant, &constant, &toConstant},
        {"null", null, nullptr, nullptr},
        {"constant null", constantNull, nullptr, nullptr},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(row.value.GetRVal(), row.read) << row.name;
        EXPECT_EQ(row.value.GetLVal(), row.write) << row.name;
    }
    EXPECT_EQ(toReference.getBody(), &plain);
    EXPECT_EQ(null.getBody(), nullptr);
}

TEST_F(ValuesTest, AParameterReachesTheFirstVariableThroughAnyChain) {
    UI_MacroVariantParam variable(UI_MacroVariant(5), false);
    {
        std::vector<std::unique_ptr<UI_MacroVariantParam>> chain;
        UI_MacroVariant* target = &variable;
        for (int i = 0; i < 10; ++i) {
            chain.push_back(std::make_unique<UI_MacroVariantParam>(false));
            *chain.back() = UI_MacroVariant(target);
            EXPECT_EQ(chain.back()->getRefVal(), &variable) << i; // already shortened
            target = chain.back().get();
        }
        chain.front().reset(); // nobody leans on it any more
        chain.back()->Assign("new");
        EXPECT_EQ(Show(variable), "String new");
        EXPECT_EQ(chain.back()->GetType(), vvtReference);
        chain.back()->SetObjectRef(UI_MacroVariant::Nothing());
        EXPECT_EQ(Show(variable), "Nothing");
        chain.back()->Assign(7);
    }
    EXPECT_EQ(Show(variable), "Integer 7");

    // A value of the host that is no parameter is reached too.
    UI_MacroVariant ofHost(1);
    UI_MacroVariantParam parameter(false);
    parameter = UI_MacroVariant(&ofHost);
    parameter.Assign(2);
    EXPECT_EQ(Show(ofHost), "Integer 2");
    EXPECT_EQ(parameter.getRefVal(), &ofHost);
}

TEST_F(ValuesTest, AReferenceToWhatHasEndedIsNull) {
    auto target = std::make_unique<UI_MacroVariantParam>(UI_MacroVariant("t"), false);
    UI_MacroVariant reference(target.get());
    UI_MacroVariantParam alias(UI_MacroVariant(target.get()), false);
    const UI_MacroVariant copy(reference);
    target.reset();
    EXPECT_EQ(Show(reference), "Null");
    EXPECT_EQ(Show(copy), "Null");
    EXPECT_EQ(showRead(alias), "null");

    UI_MacroVariant stored(1);
    stored.Assign(reference);
    EXPECT_EQ(Show(stored), "Null");
    stored.Assign(2); // replaces Null
    EXPECT_EQ(Show(stored), "Integer 2");
    reference.Assign(3);
    EXPECT_EQ(Show(reference), "Integer 3");
    alias.Assign(4);
    EXPECT_EQ(Show(alias), "Integer 4");
    UI_MacroVariant null(static_cast<UI_MacroVariant*>(nullptr));
    EXPECT_EQ(errorOf([&] { null.SetObjectRef(UI_MacroVariant::Nothing()); }),
              "Object cannot be referenced");
}

TEST_F(ValuesTest, ConstantsIgnoreWritesUntilTheyAreReleased) {
    UI_MacroVariantParam constant(UI_MacroVariant(5), true);
    UI_MacroVariantParam alias(UI_MacroVariant(&constant), false);
    UI_MacroVariant reference(&constant);
    constant = UI_MacroVariant(1);
    constant.Assign(1);
    constant.SetObjectRef(UI_MacroVariant::Nothing());
    alias.Assign(1);
    reference.Assign(1);
    EXPECT_EQ(errorOf([&] { reference.SetObjectRef(UI_MacroVariant::Nothing()); }),
              "Object cannot be referenced");
    EXPECT_EQ(Show(constant), "Integer 5");

    UI_MacroVariantParam copy(constant);
    EXPECT_FALSE(copy.isConstant());
    copy = constant;
    EXPECT_FALSE(copy.isConstant());
    copy.Assign(6);
    EXPECT_EQ(Show(copy), "Integer 6");
    constant.SetConstant(false);
    constant.Assign(7);
    EXPECT_EQ(Show(constant), "Integer 7");

    UI_MacroVariant plain(1);
    plain.SetConstant(true); // only variables can be constant
    EXPECT_FALSE(plain.isConstant());
}

TEST_F(ValuesTest, AssignmentToItselfLosesNothing) {
    UI_MacroVariantParam x(UI_MacroVariant("kept"), false);
    UI_MacroVariantParam y(false);
    y = UI_MacroVariant(&x);
    x.Assign(x);
    x.Assign(UI_MacroVariant(&x));
    x.Assign(y);
    y.Assign(x);
    y.Assign(y);
    UI_MacroVariant& same = x;
    x = same;
    EXPECT_EQ(Show(x), "String kept");
    EXPECT_EQ(y.getRefVal(), &x);
    for (UI_MacroVariantParam* target : {&x, &y}) {
        EXPECT_TRUE(errorOf([&] {
                        target->SetObjectRef(x);
                    }).starts_with("Error: Cannot set a variable to itself"));
        EXPECT_EQ(Show(x), "String kept");
    }

    // An array that is assigned one of its own elements.
    UI_MacroVariantParam list(ListOf({1, ListOf({2, 3})}), false);
    list.Assign(list.Arrval()[1]);
    EXPECT_EQ(Show(list), "Array of 2");
    EXPECT_EQ(Show(std::as_const(list).Arrval()[0]), "Integer 2");
}

TEST_F(ValuesTest, PlainCopiesKeepAReferenceAndAssignmentReadsIt) {
    UI_MacroVariant target("t");
    const UI_MacroVariant reference(&target);
    UI_MacroVariant copy;
    copy = reference;
    EXPECT_EQ(copy.getRefVal(), &target);
    UI_MacroVariant assigned;
    assigned.Assign(reference);
    EXPECT_EQ(Show(assigned), "String t");

    UI_MacroVariant list = ListOf({1, ListOf({2})});
    UI_MacroVariant deep;
    deep.Assign(list);
    list.Arrval()[1].Arrval()[0] = UI_MacroVariant(9);
    EXPECT_EQ(Show(deep.Arrval()[1].Arrval()[0]), "Integer 2");
    EXPECT_EQ(deep.GetArrayType(), ArrayValue);
}

TEST_F(ValuesTest, DeclaredArraysRefuseWhatDoesNotFit) {
    const std::string refused = "Error: Can not assign to an array";
    const auto error = [&](auto action) { return errorOf(action).substr(0, refused.size()); };
    UI_MacroVariantParam fixed(false);
    makeArray(fixed, 2, false);
    fixed.Arrval()[1] = UI_MacroVariant(1);
    EXPECT_EQ(error([&] { fixed.Assign(5); }), refused);
    EXPECT_EQ(error([&] { fixed.Assign(ListOf({1})); }), refused);
    EXPECT_EQ(error([&] { fixed.SetObjectRef(UI_MacroVariant::Nothing()); }), refused);
    EXPECT_EQ(fixed.GetArrayType(), ArrayFixed);
    EXPECT_EQ(Show(fixed.Arrval()[1]), "Integer 1");

    UI_MacroVariantParam dynamic(false);
    makeArray(dynamic, 2, true);
    EXPECT_EQ(error([&] { dynamic.Assign(5); }), refused);
    UI_MacroVariant source = ListOf({7, 8, 9, 10});
    dynamic.Assign(source);
    EXPECT_EQ(dynamic.GetArrayType(), ArrayDynamic);
    EXPECT_EQ(Show(dynamic), "Array of 4");
    source.Arrval()[0] = UI_MacroVariant(0);
    EXPECT_EQ(Show(dynamic.Arrval()[0]), "Integer 7");

    // An array that a variable merely holds gives way, also one that was re-dimensioned there.
    UI_MacroVariantParam variable(source, false);
    variable.Assign(5);
    EXPECT_EQ(Show(variable), "Integer 5");
    SCC_Array<_ArraySubscript> bounds;
    bounds.Append({0, 3});
    MacroVariantArraySupport::ReCreateArray(&variable, bounds, false);
    EXPECT_EQ(Show(variable), "Array of 4");
    variable.Assign("text");
    EXPECT_EQ(Show(variable), "String text");
}

TEST_F(ValuesTest, AnElementIsReadAndWrittenThroughItsReference) {
    UI_MacroVariant list = ListOf({1, 2, 3});
    UI_MacroVariant& element = list.Arrval()[1];
    UI_MacroVariant reference = ElementOf(element);
    UI_MacroVariant second(reference);
    EXPECT_EQ(reference.getRefVal()->GetLockCount(), 2);
    reference.Assign(20);
    EXPECT_EQ(Show(element), "Integer 20");
    element = UI_MacroVariant(21);
    EXPECT_EQ(showRead(second), "Integer 21");
    second.Clear();
    EXPECT_EQ(reference.getRefVal()->GetLockCount(), 1);

    UI_MacroVariantParam parameter(false);
    parameter = reference;
    parameter.Assign("by reference");
    EXPECT_EQ(Show(element), "String by reference");
    UI_MacroVariantParam passedOn(false);
    passedOn = UI_MacroVariant(&parameter);
    passedOn.Assign(22);
    EXPECT_EQ(Show(element), "Integer 22");
    EXPECT_EQ(Show(list.Arrval()[0]) + Show(list.Arrval()[2]), "Integer 1Integer 3");

    // The element goes: the reference keeps what it read last, and writes harm nobody.
    list.Clear();
    EXPECT_EQ(showRead(reference), "Integer 22");
    reference.Assign(23);
    parameter.Assign(24);
    EXPECT_EQ(Show(list), "Empty");
}

TEST_F(ValuesTest, SetBindsObjectsAndNeverWritesIntoThem) {
    Recorder first("First");
    Recorder second("Second");
    UI_MacroVariant list = ListOf({0, 0});
    UI_MacroVariant element = ElementOf(list.Arrval()[1]);
    UI_MacroVariantParam variable(false);
    UI_MacroVariantParam alias(false);
    alias = UI_MacroVariant(&variable);
    UI_MacroVariantParam toElement(false);
    toElement = element;
    struct Row {
        const char* name;
        UI_MacroVariant& target;
        UI_MacroVariant& where;
    };
    const Row rows[] = {
        {"variable", variable, variable},
        {"alias", alias, variable},
        {"element", *element.getRefVal(), list.Arrval()[1]},
        {"parameter for an element", toElement, list.Arrval()[1]},
    };
    for (const Row& row : rows) {
        row.target.SetObjectRef(first);
        EXPECT_EQ(row.where.getRefVal(), &first) << row.name;
        EXPECT_EQ(row.where.getObject(false), &first) << row.name;
        row.target.SetObjectRef(second);
        EXPECT_EQ(row.where.getRefVal(), &second) << row.name;
        row.target.SetObjectRef(UI_MacroVariant::Nothing());
        EXPECT_EQ(Show(row.where), "Nothing") << row.name;
        row.target.SetObjectRef(second);
        row.target.Assign(5);
        EXPECT_EQ(Show(row.where), "Integer 5") << row.name;
    }
    EXPECT_TRUE(first.IsEmpty());
    EXPECT_TRUE(second.IsEmpty());

    {
        Recorder mortal("Mortal");
        variable.SetObjectRef(mortal);
    }
    EXPECT_EQ(Show(variable), "Null");
    variable.Assign(1);
    EXPECT_EQ(Show(variable), "Integer 1");
}

TEST_F(ValuesTest, AnObjectValueTakesNoAssignment) {
    UI_MacroVariant nothing(UI_MacroVariant::Nothing());
    EXPECT_EQ(errorOf([&] { nothing.Assign(5); }), kNoAssignment);
    EXPECT_EQ(errorOf([&] { nothing.SetObjectRef(UI_MacroVariant::Nothing()); }), kNoAssignment);
    EXPECT_EQ(Show(nothing), "Nothing");
}

TEST_F(ValuesTest, ObjectsAreFoundBehindReferencesOnly) {
    Recorder object;
    UI_MacroVariant reference(static_cast<UI_MacroVariant*>(&object));
    UI_MacroVariant function;
    function.SetFunctionRefVal("f", nullptr);
    UI_MacroVariant unknown(static_cast<IUnknown*>(nullptr));
    UI_MacroVariant number(1);
    UI_MacroVariant null(static_cast<UI_MacroVariant*>(nullptr));
    EXPECT_EQ(reference.getObject(false), &object);
    EXPECT_EQ(object.getObject(false), &object);
    EXPECT_EQ(function.getObject(false), &function);
    EXPECT_EQ(unknown.getObject(false), nullptr);
    EXPECT_EQ(unknown.getObject(true), &unknown);
    EXPECT_EQ(number.getObject(true), nullptr);
    EXPECT_EQ(null.getObject(true), nullptr);
}

TEST_F(ValuesTest, MovingTakesEverythingAndLeavesEmpty) {
    UI_MacroVariant target(1);
    const auto makeFunction = [] {
        UI_MacroVariant function;
        function.SetFunctionRefVal("name", nullptr);
        return function;
    };
    const UI_MacroVariant samples[] = {
        UI_MacroVariant(5),         UI_MacroVariant(2.5),     UI_MacroVariant("text"),
        UI_MacroVariant(true),      UI_MacroVariant(&target), ListOf({1, "two", ListOf({3})}),
        UI_MacroVariant::Nothing(), makeFunction(),           UI_MacroVariant()};
    for (const UI_MacroVariant& sample : samples) {
        UI_MacroVariant from(sample);
        const UI_MacroVariant watcher(&from);
        UI_MacroVariant moved(std::move(from));
        EXPECT_EQ(Show(moved), Show(sample));
        EXPECT_EQ(moved.getRefVal(), sample.getRefVal());
        EXPECT_EQ(Show(from), "Empty");
        EXPECT_EQ(watcher.getRefVal(), &from); // stays with the place, not with the content

        UI_MacroVariant taker("old content");
        taker.Take(moved);
        EXPECT_EQ(Show(taker), Show(sample));
        EXPECT_EQ(Show(moved), "Empty");
        EXPECT_EQ(moved.GetArrNumDims(), 0);
        moved = UI_MacroVariant("used again");
        EXPECT_EQ(Show(moved), "String used again");
        EXPECT_EQ(Show(taker), Show(sample));
    }
}

TEST_F(ValuesTest, VeryDeepArraysEndWithoutRecursion) {
    const auto nest = [](UI_MacroVariant& value) {
        for (int i = 0; i < 1000000; ++i) {
            UI_MacroArray level(0, 0);
            level[0].Take(value);
            UI_MacroVariant outer(level);
            value.Take(outer);
        }
    };
    UI_MacroVariant value("innermost");
    nest(value);
    UI_MacroVariant copy(value);
    value.Clear();
    EXPECT_EQ(Show(copy), "Array of 1");
    copy = UI_MacroVariant(1);
    EXPECT_EQ(Show(copy), "Integer 1");
    nest(value);
}
