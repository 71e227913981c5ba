#pragma once

#include <UI_Macro.h>

#include <string>

/// A macro in memory.
class BenchSource : public MacroSource {
public:
    explicit BenchSource(const std::string& text) : m_Text(text.c_str(), text.size()) {}

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
    SYS_String GetFileName() override { return "bench"; }
    bool LineByLine() override { return false; }
    MacroSource* Clone(char const*) override { return nullptr; }

private:
    const SYS_String m_Text;
    bool m_Given = false;
};

/// An engine for one benchmark.
class BenchEngine {
public:
    BenchEngine() {
        MacroEngineDllInitialize();
        m_Macro = new UI_Macro(true);
        m_Macro->Register(m_Root, "Root"); // makes the processor
    }
    ~BenchEngine() {
        delete m_Macro;
        MacroEngineDllTerminate();
    }
    BenchEngine(const BenchEngine&) = delete;
    BenchEngine& operator=(const BenchEngine&) = delete;

    void Run(const SCL_Pointer<MacroSource>& source) {
        m_Macro->Execute(source, SYS_String(), nullptr, 0);
    }
    UI_Macro& GetMacro() { return *m_Macro; }
    MacroParser& GetParser() { return static_cast<MacroParser&>(*MacroSupport::GetProcessor()); }

private:
    MacroEval m_Root{"Root"};
    UI_Macro* m_Macro;
};
