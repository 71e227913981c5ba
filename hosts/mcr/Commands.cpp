#include "Commands.h"

#include <HostSource.h>
#include <interpreter/TreeDump.h>

#include "Session.h"
#include "Watch.h"

#include <cstdio>

namespace {

void writeText(const SYS_String& text) {
    std::fwrite(text.c_str(), 1, static_cast<size_t>(text.GetLength()), stdout);
}

void writeTextLine(const SYS_String& text) {
    writeText(text);
    std::fputc('\n', stdout);
}

std::vector<UI_MacroVariant> asValues(const std::vector<std::string>& arguments) {
    std::vector<UI_MacroVariant> values;
    for (const std::string& argument : arguments)
        values.emplace_back(SYS_String(argument));
    return values;
}

// Parses alone. A macro that does not parse throws, or leaves an error behind.
void parse(Session& session, MacroSource* source) {
    session.GetParser().SetSource(source);
    session.GetParser().Parse();
}

} // namespace

int RunMacro(const RunOptions& options) {
    Session session;
    const SCL_Pointer<MacroSource> source = session.OpenSource(options.file);
    if (!source)
        return ExitUsage;
    const Watch watch(options.timeout);
    return session.Guard(*source, [&] {
        std::vector<UI_MacroVariant> arguments = asValues(options.arguments);
        const UI_MacroVariant result =
            session.GetMacro().Execute(source, SYS_String(options.procedure), arguments.data(),
                                       static_cast<int>(arguments.size()));
        const int code = UI_Macro::GetReturnValue();
        if (!result.IsEmpty())
            writeTextLine(static_cast<SYS_String>(result));
        return code;
    });
}

// In parentheses it can be nothing but an expression: `Len(a) = 1` compares.
int EvaluateExpression(const std::string& expression, double timeout) {
    Session session;
    const SYS_String text("(" + expression + ")");
    const SCL_Pointer<MacroSource> source(new TextSource(text, "<expression>", session.GetTrace()));
    const Watch watch(timeout);
    return session.Guard(*source, [&]() -> int {
        const UI_MacroVariant value = session.GetMacro().Eval(source, true);
        if (Watch::GetReason() == Watch::Running)
            writeTextLine(static_cast<SYS_String>(value));
        return ExitDone;
    });
}

int PrintTree(const std::string& file) {
    Session session;
    const SCL_Pointer<MacroSource> source = session.OpenSource(file);
    if (!source)
        return ExitUsage;
    return session.Guard(*source, [&] {
        parse(session, source);
        std::string text;
        DumpTree(session.GetParser().GetTree(), text);
        writeText(SYS_String(text));
        return ExitDone;
    });
}
