// What holds for all built-in functions, and the named colours.

#include "runtime/FunctionTable.h"
#include "macroengine/runtime/FunctionCalls.h"
#include "system/platform/TestPlatform.h"

#include <UI_MacroProcessor.h>

#include <limits>
#include <new>
#include <set>
#include <stdexcept>

namespace {

constexpr int kMostArguments = 7; // more are not tried

// The counts of arguments that functions take, as digits.
const struct {
    const char* counts;
    const char* functions;
} kCounts[] = {
    {"1", "Abs Asc Atn CBool CByte CDbl CInt CLng CSng CStr Chr Cos Environ EOF Exp Fix "
          "GetTmpFileName Hex Int IsArray IsEmpty IsNull IsNumeric IsObject GetRef LCase "
          "Len Log LTrim MkDir Oct RTrim Sgn Sin Space Sqr StrReverse Tan Trim TypeName "
          "UCase VarType Str Val"},
    {"01234567", "Array ScriptEngineMinorVersion"},
    {"0", "Command DoEvents ScriptEngine ScriptEngineBuildVersion "
          "ScriptEngineMajorVersion"},
    {"12", "CreateObject Join GetObject LBound Round UBound"},
    {"01", "CurDir Rnd"},
    {"012", "Dir"},
    {"234567", "Filter"},
    {"12345", "FormatNumber FormatPercent"},
    {"234", "InStr InStrRev"},
    {"2", "Left Max Min MoveFile Right String"},
    {"123", "LoadImage"},
    {"23", "Mid StrComp"},
    {"1235", "MsgBox"},
    {"356", "Replace"},
    {"3", "Rgb"},
    {"1234", "Split"},
};

/// Calls every function with arguments that nobody means, on a system where every file fails.
class AnyCall : public FunctionTest {
protected:
    struct Function {
        const char* name;
        MacroFunctionHandler handler;

        std::string Counts() const {
            const std::string wanted = " " + std::string(name) + " ";
            for (const auto& row : kCounts)
                if ((" " + std::string(row.functions) + " ").find(wanted) != std::string::npos)
                    return row.counts;
            ADD_FAILURE() << name << " stands in no row";
            return "";
        }
        bool Takes(int count) const {
            return Counts().find(static_cast<char>('0' + count)) != std::string::npos;
        }
        /// A list comes first where one is wanted, so that the place in question decides.
        bool WantsList() const {
            static const std::set<std::string> those = {"Filter", "Join", "LBound", "UBound"};
            return those.count(name) != 0;
        }
    };

    AnyCall() {
        run("r = 1");
        platform.any.left = 0;
        MacroHostHooks silent;
        silent.messageBox = [](const SYS_String&, int, const SYS_String&) { return 1; };
        MacroSupport::SetHostHooks(silent);
        MacroLimits limits;
        limits.stringBytes = 1 << 16;
        MacroSupport::SetLimits(limits);
    }
    ~AnyCall() override {
        MacroSupport::SetHostHooks(MacroHostHooks());
        MacroSupport::SetLimits(MacroLimits());
    }

    static std::vector<Function> functions() {
        return {
#define MACRO_FUNCTION(name) {#name, Macro##name},
#include "runtime/Functions.def"
#undef MACRO_FUNCTION
        };
    }
    static std::vector<UI_MacroVariant> arguments(const Function& function, int count,
                                                  const UI_MacroVariant& filler) {
        std::vector<UI_MacroVariant> values(static_cast<std::size_t>(count), filler);
        if (function.WantsList() && count > 0)
            values[0] = ListOf({filler});
        return values;
    }
    static std::string outcome(const Function& function, int count, UI_MacroVariant* values) {
        try {
            return ShowValue(function.handler(count, values));
        } catch (const MacroException& error) {
            return ShowError(error);
        } catch (const std::length_error&) {
            return Error(20); // a run makes the one of the other
        } catch (const std::bad_alloc&) {
            return Error(20);
        }
    }

    TestPlatform platform;
};

TEST_F(AnyCall, EveryFunctionTakesItsCountsAndNoOther) {
    for (const Function& function : functions()) {
        for (int count = 0; count <= kMostArguments; ++count) {
            auto values = arguments(function, count, UI_MacroVariant(1));
            const std::string result = outcome(function, count, values.data());
            const bool refuses = std::string(function.name) == "GetRef"; // no procedure is called 1
            EXPECT_EQ(result != Error(34), function.Takes(count) && !refuses)
                << function.name << " with " << count << ": " << result;
            if (count > 0 && std::string(function.name) != "ScriptEngineMinorVersion") {
                EXPECT_EQ(outcome(function, count, nullptr), Error(34))
                    << function.name << " with " << count << " of nothing";
            }
        }
    }
    UI_MacroVariant leftOut = OfKind(vvtMissing);
    EXPECT_TRUE(MacroDoEvents(1, &leftOut).IsEmpty());
}

// Whatever stands in whichever place, a function gives a value or one of the errors meant for this,
// and the same one again.
TEST_F(AnyCall, EveryFunctionStandsEveryKindAndSize) {
    SampleTargets targets;
    std::vector<UI_MacroVariant> odd = {
        -1,
        2147483647,
        __int64{2147483648},
        std::numeric_limits<__int64>::max(),
        1e308,
        -1e308,
        std::numeric_limits<double>::quiet_NaN(),
        std::numeric_limits<double>::infinity(),
        "%s%n",
        SYS_String("\0", 1),
        SYS_String('x', 65000),
        UI_MacroVariant(static_cast<UI_MacroVariant*>(&object)),
    };
    for (const Sample& sample : AllSamples(targets))
        odd.push_back(sample.make());
    for (const Function& function : functions()) {
        std::set<std::string> allowed = {Error(20), Error(23), Error(34)};
        if (std::string(function.name) == "LoadImage")
            allowed.insert(Error(36));
        const bool isRandom = std::string(function.name) == "Rnd";
        const std::string counts = function.Counts();
        for (const char digit : counts) {
            const int count = digit - '0';
            for (const UI_MacroVariant& filler : {UI_MacroVariant(2), UI_MacroVariant("text")}) {
                for (std::size_t at = 0; at < static_cast<std::size_t>(count) * odd.size(); ++at) {
                    auto values = arguments(function, count, filler);
                    values[at / odd.size()] = odd[at % odd.size()];
                    const std::string result = outcome(function, count, values.data());
                    EXPECT_TRUE(!result.starts_with("error") || allowed.count(result))
                        << function.name << " with " << count << ", " << at << ": " << result;
                    EXPECT_TRUE(isRandom || result == outcome(function, count, values.data()))
                        << function.name << " with " << count << ", " << at << ": " << result;
                }
            }
        }
    }
}

TEST_F(FunctionTest, NamesIgnoreCaseAndCannotBeAssigned) {
    check({{"LEFT(\"abc\", 1)", "String a"}, {"lefT(\"abc\", 1)", "String a"}});
    const std::string text = Text([&] {
        try {
            macro.Execute(new MemorySource("Max = 5"), SYS_String(), nullptr, 0);
        } catch (const MacroException& error) {
            return error.GetText();
        }
        return SYS_String();
    }());
    EXPECT_TRUE(text.starts_with("Illegal assignment: 'Max'")) << text;
}

TEST_F(FunctionTest, AnObjectHidesTheFunctionOfItsName) {
    MacroEval other("Left");
    macro.Register(other, nullptr);
    EXPECT_EQ(run("r = TypeName(Left)"), "String Macro object");
    macro.Remove(other);
    EXPECT_EQ(run("r = Left(\"abc\", 1)"), "String a");
}

class Palette : public MacroEval {
public:
    Palette() : MacroEval("Palette") {}
    using MacroEval::getColorVarNameByRGB;
    using MacroEval::operator=;
    void OnParserReset(MacroSupport& processor) override {
        regColorConstantInParser(processor);
        regColorConstantInParser(processor);
        regConstantInParser(processor, "Answer", UI_MacroVariant(42));
        regConstantInParser(processor, "answer", UI_MacroVariant(1));
    }
};

TEST_F(FunctionTest, ColoursAreConstantsOnceTheHostHasRegisteredThem) {
    EXPECT_EQ(run("r = vbColorRed"), "Empty");
    Palette palette;
    macro.Register(palette, "Palette");
    check({{"vbColorRed", "Integer 255"},
           {"vbcolorblack", "Integer 0"},
           {"vbColorMediumSlateBlue", "Integer 15624315"},
           {"Answer", "Integer 42"}});
    EXPECT_NE(run("vbColorRed = 1").find("Illegal assignment: 'vbColorRed'"), std::string::npos);
    EXPECT_EQ(Text(Palette::getColorVarNameByRGB(255)), "vbColorRed");
    EXPECT_EQ(Text(Palette::getColorVarNameByRGB(0x475AFF)), "vbColorTomato");
    EXPECT_EQ(Text(Palette::getColorVarNameByRGB(-5)), "-5");
    macro.Remove(palette);
}

} // namespace
