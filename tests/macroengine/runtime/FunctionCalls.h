#pragma once

// Runs expressions as a macro would and shows their values.

#include "macroengine/values/ValueSamples.h"

#include <UI_Macro.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// A macro in memory.
class MacroInMemory : public MacroSource {
public:
    explicit MacroInMemory(const std::string& text) : m_Text(text.c_str(), text.size()) {}

    void Reset() override {
        SetPosition(0);
        SetNextPosition(0);
        m_Given = false;
    }
    int GetNextLine(SYS_String& line, bool) override {
        if (m_Given)
            return 0;
        m_Given = true;
        line = m_Text;
        return 1;
    }
    SYS_String GetFileName() override { return "text"; }
    bool LineByLine() override { return false; }
    MacroSource* Clone(char const*) override { return nullptr; }

private:
    const SYS_String m_Text;
    bool m_Given = false;
};

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
            macro.Execute(new MacroInMemory(text), SYS_String(), nullptr, 0);
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
