#pragma once

#include <UI_Macro.h>

#include "macroengine/MemorySource.h"

#include <string>

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
