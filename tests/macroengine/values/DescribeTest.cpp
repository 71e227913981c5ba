#include "ValueSamples.h"

namespace {

using DescribeTest = ValueTest;

std::string describe(const UI_MacroVariant& value) { return Text(value.DescribeVar()); }

TEST_F(DescribeTest, EveryKind) {
    SampleTargets targets;
    BareObject object;
    object.SetIntVal(5);
    UI_MacroVariant element(1);
    const UI_MacroVariant reference = ElementOf(element);
    element.SetStringVal("new");
    UI_MacroVariant function;
    function.SetFunctionRefVal("Area", nullptr);
    UI_MacroVariant list(UI_MacroArray(1, 3));
    const std::pair<UI_MacroVariant, const char*> rows[] = {
        {UI_MacroVariant(), "[undefined]"},
        {OfKind(vvtMissing), "[undefined]"},
        {UI_MacroVariant(static_cast<IDispatch*>(nullptr)), "[object: 0x0]"},
        {function, "[function: 'Area']"},
        {UI_MacroVariant("a \"b\""), "[string: \"a \"b\"\"]"},
        {ScriptOf("x = 1"), "[script: \"x = 1\"]"},
        {UI_MacroVariant(__int64{4294967296}), "[number: 4294967296]"},
        {UI_MacroVariant(2.5), "[number: 2.5]"},
        {UI_MacroVariant(true), "True"},
        {UI_MacroVariant(false), "False"},
        {NullValue(), ""},
        {UI_MacroVariant::Null(), ""},
        {list, "[array: dim(1), bounds(1,3)]"},
        {UI_MacroVariant(UI_MacroArray()), "[array: dim(1), bounds(0,-1)]"},
        {HandleOf(0x1F), "[handle: 0x1f]"},
        {HandleOf(0x80000000u), "[handle: 0xffffffff80000000]"},
        {UI_MacroVariant(static_cast<IUnknown*>(nullptr)), "[unknown: 0x0]"},
        {UI_MacroVariant(&targets.alias), "[number: 7]"},
        {UI_MacroVariant(&targets.constant), "[string: \"2.5\"]"},
        {reference, "[string: \"new\"]"},
        {UI_MacroVariant(&object), "Macro object"},
    };
    for (const auto& [value, text] : rows)
        EXPECT_EQ(describe(value), text);
    EXPECT_EQ(describe(object), "Macro object");
    UI_MacroVariant broken;
    broken.SetType(static_cast<VariantValueType>(14));
    EXPECT_EQ(describe(broken), "");
}

TEST_F(DescribeTest, LongChainsOfReferences) {
    std::vector<std::unique_ptr<UI_MacroVariant>> chain;
    chain.push_back(std::make_unique<UI_MacroVariant>(9));
    for (int i = 0; i < 200000; ++i)
        chain.push_back(std::make_unique<UI_MacroVariant>(chain.back().get()));
    EXPECT_EQ(describe(*chain.back()), "[number: 9]");
    chain.front().reset();
    EXPECT_EQ(describe(*chain.back()), "");
}

} // namespace
