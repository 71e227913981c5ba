// A host program that gives macros a class of automation objects, and hands its own object to one
// of them.

#include <AutomationObject.h>
#include <UI_Macro.h>

#include <cstdio>

/// `CreateObject("House.Lamp")`. The level is the default: `x = lamp`.
class Lamp final : public automation::Object {
public:
    const automation::Members& GetMembers() const override {
        static const automation::Members members(
            "Lamp", {
                        automation::Property<&Lamp::GetLevel, &Lamp::SetLevel>("Level").Default(),
                        automation::Method<&Lamp::Dim>("Dim", 0, 1),
                        automation::Property<&Lamp::GetOwner, nullptr, &Lamp::SetOwner>("Owner"),
                    });
        return members;
    }

private:
    LONG GetLevel() const { return m_Level; }
    void SetLevel(const automation::Arguments& arguments) {
        const LONGLONG level = arguments.Integer(0);
        if (level < 0 || level > 100)
            throw automation::Failure("A lamp has a level from 0 to 100");
        m_Level = static_cast<LONG>(level);
    }
    LONG Dim(const automation::Arguments& arguments) {
        const auto by = static_cast<LONG>(arguments.Integer(0, 10));
        return m_Level = m_Level > by ? m_Level - by : 0;
    }
    COleVariant GetOwner() const { return m_Owner; }
    void SetOwner(const automation::Arguments& arguments) { m_Owner = arguments[0]; }

    LONG m_Level = 100;
    COleVariant m_Owner;
};

/// `House.Say text` prints it.
struct House : MacroEval {
    House() : MacroEval("House") {}

    UI_MacroVariant Evaluate(const char* name, UI_MacroVariant* args, int argc) override {
        if (!name || SYS_String(name).CompareNoCase("Say") != 0 || argc != 1)
            return MacroEval::Evaluate(name, args, argc);
        std::printf("%s\n", SYS_String(args[0]).c_str());
        return true;
    }
};

int main() {
    MacroEngineDllInitialize();
    automation::RegisterClass("House.Lamp", [] { return new Lamp; });
    int status = 1;
    try {
        UI_Macro macro(true);
        House house;
        macro.Register(house, nullptr);
        macro.ExecuteMacroString("Set lamp = CreateObject(\"House.Lamp\")\n"
                                 "lamp.Dim\n"
                                 "lamp.Dim 30\n"
                                 "House.Say \"level \" & lamp\n"
                                 "Set lamp.Owner = House\n"
                                 "lamp.Owner.Say \"said by the owner\"\n"
                                 "lamp.Level = 101\n");
    } catch (const MacroException& error) {
        std::printf("line %d: %s (%s)\n", error.GetPosition() + 1, error.GetText().c_str(),
                    error.GetDetail().c_str());
        status = 0;
    }
    automation::RevokeClass("House.Lamp");
    MacroEngineDllTerminate();
    return status;
}
