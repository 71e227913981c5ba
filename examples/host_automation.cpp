// Automation objects of a host: macros make them by a program name, and need no registered object.

#include <AutomationObject.h>
#include <UI_Macro.h>

#include <cstdio>
#include <vector>

namespace {

//! [class]
/// A queue of texts: `Add text`, `Count`, `Take()`, and `For Each`.
class Queue : public automation::Object {
public:
    const automation::Members& GetMembers() const override {
        static const automation::Members members(
            "Queue",
            {automation::Method<&Queue::Add>("Add", 1),
             automation::Property<&Queue::GetCount>("Count").Default(),
             automation::Method<&Queue::Take>("Take"), automation::Enumerator<&Queue::Walk>()});
        return members;
    }

private:
    void Add(const automation::Arguments& arguments) { m_Texts.push_back(arguments.Text(0)); }
    LONG GetCount() const { return static_cast<LONG>(m_Texts.size()); }
    COleVariant Take() {
        if (m_Texts.empty())
            throw automation::Failure("The queue is empty");
        const SYS_String first = m_Texts.front();
        m_Texts.erase(m_Texts.begin());
        return COleVariant(first.c_str());
    }
    IUnknown* Walk() const {
        std::vector<COleVariant> items;
        for (const SYS_String& text : m_Texts)
            items.emplace_back(text.c_str());
        return automation::NewEnumerator(items);
    }

    std::vector<SYS_String> m_Texts;
};
//! [class]

/// `Out.Line` prints values.
class Out : public MacroEval {
public:
    Out() : MacroEval("Out") {}

    UI_MacroVariant Evaluate(const char* name, UI_MacroVariant* args, int argc) override {
        if (SYS_StrNoCase(name) != "Line")
            return MacroEval::Evaluate(name, args, argc);
        for (int i = 0; i < argc; ++i)
            std::printf("%s ", static_cast<SYS_String>(args[i]).c_str());
        std::printf("\n");
        return UI_MacroVariant();
    }
};

} // namespace

int main() {
    MacroEngineDllInitialize();
    //! [register]
    automation::RegisterClass("Office.Queue", [] { return new Queue; });
    //! [register]
    {
        Out out;
        UI_Macro macro(true);
        macro.Register(out, nullptr);
        try {
            //! [macro]
            macro.ExecuteMacroString("Set work = CreateObject(\"Office.Queue\")\n"
                                     "work.Add \"letters\"\n"
                                     "work.Add \"calls\"\n"
                                     "For Each task In work\n"
                                     "    Out.Line task\n"
                                     "Next\n"
                                     "Out.Line work.Take(), work.Count, work + 1\n"
                                     "work.Take\n"
                                     "work.Take\n");
            //! [macro]
        } catch (const MacroException& error) {
            //! [failure]
            std::printf("line %d: %s: %s\n", error.GetPosition() + 1, error.GetText().c_str(),
                        error.GetDetail().c_str());
            //! [failure]
        }
    }
    automation::RevokeClass("Office.Queue");
    MacroEngineDllTerminate();
}
