#pragma once

// Runs expressions as a macro would and shows their values.

#include "macroengine/MemorySource.h"
#include "macroengine/values/ValueSamples.h"

#include <UI_Macro.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

struct FunctionCall {
    std::string expression;
    std::string result;
};

class FunctionTest : public testing::Test {
protected:
    void SetUp() override { macro.Register(object, "Thing"); }

    /// Runs a macro and shows what it leaves in `r`.
    std::string run(const std::string& text) {
        try {
            macro.Execute(new MemorySource(text), SYS_String(), nullptr, 0);
        } catch (const MacroException& error) {
            const std::string message = Text(error.GetText());
            return message.ends_with("out of memory") ? "out of memory" : ShowError(error);
        }
        const UI_MacroVariant* r = MacroSupport::GetProcessor()->LookupVar("r");
        return r ? ShowValue(*r) : "no r";
    }
    void check(const std::vector<FunctionCall>& calls) {
        for (const FunctionCall& call : calls)
            EXPECT_EQ(run("r = " + call.expression), call.result) << call.expression;
    }

    static std::string ShowValue(const UI_MacroVariant& value) {
        if (value.GetType() != vvtArray)
            return Show(value);
        std::string text = "[";
        const UI_MacroArray& array = value.Arrval();
        for (int i = 0; i < array.GetCount(); ++i)
            text += (i ? ", " : "") + ShowValue(array.GetData()[i]);
        return text + "]";
    }

    UI_Macro macro{true};
    BareObject object;
};
