// Runs a macro that calls back into its host.
#include <UI_Macro.h>

#include <cstdio>

struct Pen : MacroEval {
    Pen() : MacroEval("Pen") {}

    UI_MacroVariant Evaluate(const char* name, UI_MacroVariant* args, int argc) override {
        if (!name || SYS_String(name).CompareNoCase("MoveTo") != 0 || argc != 2)
            return MacroEval::Evaluate(name, args, argc);
        std::printf("to %g, %g\n", double(args[0]), double(args[1]));
        return true;
    }
};

int main() {
    MacroEngineDllInitialize();
    try {
        UI_Macro macro(true);
        Pen pen;
        macro.Register(pen, nullptr);
        macro.ExecuteMacroString("For i = 1 To 3\n Pen.MoveTo i, i * 2.5\nNext");
    } catch (const MacroException& error) {
        std::printf("line %d: %s\n", error.GetPosition() + 1, error.GetText().c_str());
    }
    MacroEngineDllTerminate();
}
