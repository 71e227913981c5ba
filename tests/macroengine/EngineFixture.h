#pragma once

// What the tests of the whole engine share: macros from memory, a host object that takes notes,
// and an engine behind its door.

#include "../system/AssertRecorder.h"
#include "MemorySource.h"

#include <UI_Macro.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

using Lines = std::vector<std::string>;

/// A host object. Its method `Add` keeps the text of each argument; the tests give it others.
class Recorder : public MacroEval {
public:
    using Args = std::span<UI_MacroVariant>;

    explicit Recorder(const char* name = "Log") : MacroEval(name) {}

    using MacroEval::operator=;

    /// A method: takes nothing or `Args`, gives nothing or a value.
    template <class Action> void On(const char* name, Action action) {
        m_Methods[name] = [action](Args args) mutable -> UI_MacroVariant {
            if constexpr (std::is_invocable_v<Action&, Args>)
                return give([&] { return action(args); });
            else
                return give([&] { return action(); });
        };
    }

    UI_MacroVariant Evaluate(const char* name, UI_MacroVariant* args, int argc) override {
        if (!name)
            return MacroEval::Evaluate(name, args, argc);
        const Args list(args, static_cast<std::size_t>(argc));
        if (SYS_StrNoCase(name) == "Add") {
            for (const UI_MacroVariant& value : list)
                lines.emplace_back(static_cast<SYS_String>(value).View());
            return UI_MacroVariant();
        }
        const auto found = m_Methods.find(name);
        if (found == m_Methods.end())
            return MacroEval::Evaluate(name, args, argc);
        const Method method = found->second; // it may be replaced, or this object end, meanwhile
        return method(list);
    }

    Lines lines;

private:
    using Method = std::function<UI_MacroVariant(Args)>;

    template <class Action> static UI_MacroVariant give(Action action) {
        if constexpr (std::is_void_v<std::invoke_result_t<Action&>>) {
            action();
            return UI_MacroVariant();
        } else {
            return UI_MacroVariant(action());
        }
    }

    std::map<SYS_StrNoCase, Method> m_Methods;
};

/// An engine with the object `Log`. Puts back the host's services and limits at the end.
class EngineTest : public testing::Test {
protected:
    using Args = Recorder::Args;

    EngineTest() { macro.Register(log, "Log"); }
    ~EngineTest() override {
        MacroSupport::SetHostHooks(m_Hooks);
        MacroSupport::SetLimits(m_Limits);
    }

    static MacroSupport& processor() { return *MacroSupport::GetProcessor(); }
    static SCL_Pointer<MemorySource> textSource(std::string_view text, Feed feed = Feed::Whole) {
        return new MemorySource(text, feed);
    }
    static std::string textOf(const UI_MacroVariant& value) {
        return std::string(static_cast<SYS_String>(value).View());
    }

    UI_MacroVariant execute(MacroSource* source, const char* function = "", Args args = {}) {
        return macro.Execute(source, function, args.empty() ? nullptr : args.data(),
                             static_cast<int>(args.size()));
    }
    /// What the macro has added, and the text of its error, if any, as the last line.
    Lines runText(std::string_view text, Feed feed = Feed::Whole) {
        return runSource(textSource(text, feed));
    }
    Lines runSource(const SCL_Pointer<MemorySource>& source) {
        log.lines.clear();
        Lines output;
        try {
            execute(source);
            output = log.lines;
        } catch (const MacroException& error) {
            output = log.lines;
            output.emplace_back(error.GetText().View());
        }
        return output;
    }
    /// The text of the error that an action raises; "no error" if it raises none.
    template <class Action> static std::string errorOf(Action action) {
        try {
            action();
        } catch (const MacroException& error) {
            return std::string(error.GetText().View());
        }
        return "no error";
    }

private:
    struct Life {
        Life() { MacroEngineDllInitialize(); }
        Life(const Life&) = delete;
        Life& operator=(const Life&) = delete;
        ~Life() { MacroEngineDllTerminate(); }
    };

    Life m_Life;
    MacroHostHooks m_Hooks = MacroSupport::GetHostHooks();
    MacroLimits m_Limits = MacroSupport::GetLimits();

protected:
    Recorder log;
    UI_Macro macro{true};
};

/// A folder for the files of one test.
class TestFolder {
public:
    TestFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "engineXXXXXX").string();
        if (char* made = mkdtemp(pattern.data()))
            m_Path = made;
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    ~TestFolder() {
        std::error_code ignored;
        if (!m_Path.empty())
            std::filesystem::remove_all(m_Path, ignored);
    }

    const std::filesystem::path& GetPath() const { return m_Path; }
    std::string Write(const std::string& name, std::string_view text) const {
        const std::filesystem::path file = m_Path / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << text;
        return file.string();
    }
    Lines List() const {
        Lines names;
        for (const auto& entry : std::filesystem::directory_iterator(m_Path))
            names.push_back(entry.path().filename().string());
        return names;
    }

private:
    std::filesystem::path m_Path;
};
