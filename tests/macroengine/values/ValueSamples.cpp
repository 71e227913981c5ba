#include "ValueSamples.h"

#include <bit>
#include <cstdint>
#include <limits>
#include <utility>

namespace {

constexpr __int64 Smallest = std::numeric_limits<__int64>::min();

Sample number(const char* name, std::function<UI_MacroVariant()> make, int kind, const char* text,
              __int64 integer, double real, unsigned handle, __int64 bits) {
    return {name, std::move(make), kind, text, integer, real, handle, bits, false};
}

Sample other(const char* name, std::function<UI_MacroVariant()> make, int kind,
             const char* text = "") {
    return {name, std::move(make), kind, text, {}, {}, {}, 0, false};
}

__int64 bitsOf(double value) { return std::bit_cast<__int64>(value); }

} // namespace

std::vector<Sample> AllSamples(SampleTargets& targets) {
    using V = UI_MacroVariant;
    auto value = [](auto plain) { return [plain] { return V(plain); }; };
    std::vector<Sample> samples = {
        number("Empty", value(V()), 1, "", 0, 0, 0, 0),
        number("Nothing", value(V(static_cast<IDispatch*>(nullptr))), 2, "", 0, 0, 0, 0),
        number("empty String", value(""), 4, "", 0, 0, 0, 0),
        number("String 12abc", value("12abc"), 4, "12abc", 12, 12, 0x12abc, 0),
        number("String 2.5", value("2.5"), 4, "2.5", 2, 2.5, 2, 0),
        number("String -9e9", value("-9e9"), 4, "-9e9", -9, -9e9, 0xFFFFF617u, 0),
        number("String 1", value("1"), 4, "1", 1, 1, 1, 0),
        number("Integer 0", value(0), 5, "0", 0, 0, 0, 0),
        number("Integer 1", value(1), 5, "1", 1, 1, 1, 1),
        number("Integer -7", value(-7), 5, "-7", -7, -7, 0xFFFFFFF9u, -7),
        number("Integer 2^32", value(__int64{4294967296}), 5, "0", 4294967296, 4294967296.0, 0,
               4294967296),
        number("smallest Integer", value(Smallest), 5, "0", Smallest, -9223372036854775808.0, 0,
               Smallest),
        number("Double 0", value(0.0), 6, "0", 0, 0, 0, 0),
        number("Double 2.5", value(2.5), 6, "2.5", 3, 2.5, 2, bitsOf(2.5)),
        number("Double -2.5", value(-2.5), 6, "-2.5", -3, -2.5, 0xFFFFFFFEu, bitsOf(-2.5)),
        number("Double 1e300", value(1e300), 6, "1e+300", Smallest, 1e300, 0, bitsOf(1e300)),
        number("True", value(true), 7, "True", -1, -1, 0xFFFFFFFFu, -1),
        number("False", value(false), 7, "False", 0, 0, 0, 0),
        other("Array", value(ListOf({V(1), V("x")})), 9),
        other("empty Array", value(V(UI_MacroArray())), 9),
        other("Missing", value(OfKind(vvtMissing)), 10),
        number("Handle 0", value(HandleOf(0)), 11, "0x0", 0, 0, 0, 0),
        number("Handle", value(HandleOf(0x80000001u)), 11, "0xffffffff80000001", -2147483647,
               -2147483647.0, 0x80000001u, 0x80000001),
        other("Script", value(ScriptOf("2.5")), 12, "2.5"),
        number("Unknown", value(V(static_cast<IUnknown*>(nullptr))), 13, "", 0, 0, 0, 0),
        number("Function", value(&GiveThree), 5, "3", 3, 3, 3, 3),
        number("variable 7", value(V(&targets.variable)), 5, "7", 7, 7, 7, 7),
        number("alias of variable 7", value(V(&targets.alias)), 5, "7", 7, 7, 7, 7),
        number("constant 2.5", value(V(&targets.constant)), 4, "2.5", 2, 2.5, 2, 0),
        number("unset variable", value(V(&targets.unset)), 1, "", 0, 0, 0, 0),
        number("element 2.5", value(ElementOf(targets.element)), 6, "2.5", 3, 2.5, 2, bitsOf(2.5)),
    };
    Sample null = number("Null", NullValue, 8, "", 0, 0, 0, 0);
    null.null = true;
    samples.push_back(null);
    for (Sample& sample : samples) {
        if (sample.kind == 1) // nothing is no handle
            sample.handle.reset();
    }
    return samples;
}
