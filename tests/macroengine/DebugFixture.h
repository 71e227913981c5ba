#pragma once

// A debugger for tests, and the fixture of tests that run macros under it.

#include "EngineFixture.h"

#include <set>
#include <utility>

using Processor = MacroSupport;
using Mode = Processor::ExecutionMode;

/// A debugger: pauses at breakpoints, and at each pause goes on in the next mode of a plan.
class Debugger : public MemorySource {
public:
    struct Stop {
        long line;
        int frames;
        bool operator==(const Stop&) const = default;
        friend std::ostream& operator<<(std::ostream& out, const Stop& stop) {
            return out << "line " << stop.line << " frames " << stop.frames;
        }
    };

    using MemorySource::MemorySource;

    bool IsBreakPoint(long line) override {
        asked.push_back(line);
        if (!breakpoints.contains(line))
            return false;
        // The same statement is asked for again when it is about to go on.
        resuming = !resuming;
        if (resuming)
            Processor::GetProcessor()->SetExecutionMode(Processor::emPaused);
        return resuming;
    }
    void OnPause() override {
        const Processor& processor = *Processor::GetProcessor();
        stops.push_back({processor.GetCurrentLine(), processor.GetFramesCount()});
        if (onPause)
            onPause();
        if (waits)
            return;
        Mode next = Processor::emRun;
        if (!plan.empty()) {
            next = plan.front();
            plan.erase(plan.begin());
        }
        Processor::GetProcessor()->SetExecutionMode(next);
    }
    bool BreakOnError(MacroException& error) override { return onError && onError(error); }

    std::vector<long> getLines() const {
        std::vector<long> lines;
        for (const Stop& stop : stops)
            lines.push_back(stop.line);
        return lines;
    }

    std::set<long> breakpoints;
    std::vector<Mode> plan;
    std::function<void()> onPause;
    std::function<bool(MacroException&)> onError;
    bool waits = false; // leaves it to the host's idle hook to go on
    std::vector<long> asked;
    std::vector<Stop> stops;

private:
    bool resuming = false;
};

class DebugTest : public EngineTest {
protected:
    static SCL_Pointer<Debugger> debug(std::string_view text, std::set<long> breakpoints,
                                       std::vector<Mode> plan = {}, Feed feed = Feed::Whole) {
        SCL_Pointer<Debugger> source = new Debugger(text, feed);
        source->breakpoints = std::move(breakpoints);
        source->plan = std::move(plan);
        return source;
    }
    static void setHooks(std::function<void(long)> statement, std::function<void()> idle = {}) {
        MacroHostHooks hooks = Processor::GetHostHooks();
        hooks.statement = std::move(statement);
        hooks.idle = std::move(idle);
        Processor::SetHostHooks(hooks);
    }
    static UI_MacroVariant& variable(const char* name) {
        static UI_MacroVariant none;
        UI_MacroVariant* const found = processor().LookupVar(name);
        EXPECT_NE(found, nullptr) << name;
        return found ? *found : none;
    }
};
