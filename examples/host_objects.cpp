// A host program that gives macros two classes of its own: a thermostat, and a house full of them.

#include <AutomationFace.h>
#include <ClassDescriptors.h>
#include <UI_Macro.h>

#include <cstdio>
#include <deque>
#include <vector>

//! [class]
/// `Name` is read-only. `Degrees` can be read and written, and it is the default: `x = room`.
class Thermostat : public MacroEval {
public:
    explicit Thermostat(const SYS_String& room) : MacroEval(room) {}
    using MacroEval::operator=;

    static cMacroAppClass* GetMacroClass() {
        using T = Thermostat;
        static cMacroAppClass self("Thermostat", MacroEval::GetMacroClass());
        static cMacroClassProperty<T> name(self, "Name", TypeNameString, &T::GetMacroName);
        static cMacroClassProperty<T> degrees(self, "Degrees", TypeNameReal, &T::GetDegrees,
                                              &T::SetDegrees, nullptr, true);
        static cMacroClassMethod<T> warm(self, "Warm", TypeNameReal, &T::Warm, false,
                                         cMacroArgument("by", TypeNameReal).opt(1));
        return &self;
    }
    const ScriptDebugger::iApplicationClass* GetMacroDescriptor() const override {
        return GetMacroClass();
    }
    UI_MacroVariant Evaluate(const char* name, UI_MacroVariant* args, int argc) override {
        UI_MacroVariant result;
        if (EvaluateMember(*this, name, args, argc, result))
            return result;
        return MacroEval::Evaluate(name, args, argc);
    }

private:
    UI_MacroVariant GetDegrees(int, UI_MacroVariant*) { return m_Degrees; }
    UI_MacroVariant SetDegrees(int, UI_MacroVariant* args) {
        m_Degrees = static_cast<double>(args[0]);
        return m_Degrees;
    }
    UI_MacroVariant Warm(int argc, UI_MacroVariant* args) {
        m_Degrees += argc > 0 ? static_cast<double>(args[0]) : 1.0;
        return m_Degrees;
    }

    double m_Degrees = 18.0;
};
//! [class]

/// A child of the house: macros name it `House.Door`.
class Door : public MacroEval {
public:
    Door() : MacroEval("Door") {}
    using MacroEval::operator=;

    static cMacroAppClass* GetMacroClass() {
        static cMacroAppClass self("Door", MacroEval::GetMacroClass());
        static cMacroClassProperty<Door> open(self, "Open", TypeNameBoolean, &Door::IsOpen,
                                              &Door::SetOpen);
        return &self;
    }
    const ScriptDebugger::iApplicationClass* GetMacroDescriptor() const override {
        return GetMacroClass();
    }
    UI_MacroVariant Evaluate(const char* name, UI_MacroVariant* args, int argc) override {
        UI_MacroVariant result;
        if (EvaluateMember(*this, name, args, argc, result))
            return result;
        return MacroEval::Evaluate(name, args, argc);
    }

private:
    UI_MacroVariant IsOpen(int, UI_MacroVariant*) { return m_Open; }
    UI_MacroVariant SetOpen(int, UI_MacroVariant* args) {
        m_Open = static_cast<bool>(args[0]);
        return UI_MacroVariant();
    }

    bool m_Open = false;
};

/// `House.Add("Hall")` gives a new thermostat, `House(0)` or `House.Room(0)` one that is there.
class House : public MacroEval {
public:
    //! [child]
    House() : MacroEval("House") { Register(m_Door, nullptr); }
    //! [child]
    using MacroEval::operator=;

    static cMacroAppClass* GetMacroClass() {
        static cMacroAppClass self("House", MacroEval::GetMacroClass());
        static cMacroClassProperty<House> count(self, "Count", TypeNameInt, &House::GetCount);
        static cMacroClassProperty<House> names(self, "Names", TypeNameVariant, &House::GetNames);
        static cMacroClassMethod<House> add(self, "Add", "Thermostat", &House::Add, false,
                                            cMacroArgument("room", TypeNameString));
        static cMacroClassMethod<House> room(self, "Room", "Thermostat", &House::Room, true,
                                             cMacroArgument("index", TypeNameInt));
        static cMacroClassMethod<House> rooms(self, "_NewEnum", TypeNameVariant, &House::Rooms);
        return &self;
    }
    const ScriptDebugger::iApplicationClass* GetMacroDescriptor() const override {
        return GetMacroClass();
    }
    UI_MacroVariant Evaluate(const char* name, UI_MacroVariant* args, int argc) override {
        UI_MacroVariant result;
        if (EvaluateMember(*this, name, args, argc, result))
            return result;
        return MacroEval::Evaluate(name, args, argc);
    }

    //! [constants]
    void OnParserReset(MacroSupport& processor) override {
        regConstantInParser(processor, "hsRoomTemperature", 21.0);
    }
    //! [constants]

    void Print() {
        for (Thermostat& room : m_Rooms)
            std::printf("%-8s %.1f degrees\n", room.GetName().c_str(),
                        static_cast<double>(room.Evaluate("Degrees", nullptr, 0)));
    }

private:
    UI_MacroVariant GetCount(int, UI_MacroVariant*) { return static_cast<int>(m_Rooms.size()); }
    //! [array]
    UI_MacroVariant GetNames(int, UI_MacroVariant*) {
        UI_MacroArray names;
        for (const Thermostat& room : m_Rooms)
            names.Append(room.GetName());
        return names;
    }
    //! [array]
    //! [items]
    UI_MacroVariant Add(int, UI_MacroVariant* args) {
        return static_cast<UI_MacroVariant*>(
            &m_Rooms.emplace_back(static_cast<SYS_String>(args[0])));
    }
    UI_MacroVariant Room(int, UI_MacroVariant* args) {
        const int index = static_cast<int>(args[0]);
        if (index < 0 || index >= static_cast<int>(m_Rooms.size()))
            OnMacroError("There is no such room");
        return static_cast<UI_MacroVariant*>(&m_Rooms.at(static_cast<std::size_t>(index)));
    }
    //! [items]
    //! [collection]
    UI_MacroVariant Rooms(int, UI_MacroVariant*) { // the member "_NewEnum"
        std::vector<MacroEval*> rooms;
        for (Thermostat& room : m_Rooms)
            rooms.push_back(&room);
        return WalkOver(rooms);
    }
    bool GetDispatch(IDispatch** face) const override {
        if (face)
            *face = ExposeToAutomation(const_cast<House&>(*this));
        return true;
    }
    //! [collection]

    Door m_Door;
    std::deque<Thermostat> m_Rooms; // stay where they are while the house grows
};

int main() {
    MacroEngineDllInitialize();
    int status = 0;
    {
        House house;
        UI_Macro macro(true);
        macro.Register(house, "House");
        try {
            //! [macro]
            macro.ExecuteMacroString("House.Add \"Hall\"\n"
                                     "Set kitchen = House.Add(\"Kitchen\")\n"
                                     "kitchen.Degrees = House(0) + 2.5\n"
                                     "kitchen.Warm\n"
                                     "For Each room In House\n"
                                     "    room.Warm 0.5\n"
                                     "Next\n");
            //! [macro]
            house.Print();
            macro.ExecuteMacroString("For Each name In House.Names\n"
                                     "    all = all & name & \" \"\n"
                                     "Next\n"
                                     "House.Door.Open = True\n"
                                     "House.Add all & House.Door.Open\n"
                                     "Set last = House(House.Count - 1)\n"
                                     "last.Degrees = hsRoomTemperature\n");
            house.Print();
            macro.ExecuteMacroString("House.Room(7).Warm");
        } catch (const MacroException& error) {
            std::printf("error: %s\n", error.GetText().c_str());
            status = error.GetText() == "There is no such room" ? 0 : 1;
        }
    }
    MacroEngineDllTerminate();
    return status;
}
