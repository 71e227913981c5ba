// mcr outline: what a macro declares.

#include "EditorCommands.h"
#include "MacroText.h"
#include "Session.h"
#include "Utf8.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdio>
#include <map>

namespace {

using Json = nlohmann::ordered_json;

const char* wordsOf(MacroAccess access) {
    constexpr const char* words[] = {"", "Public", "Public Default", "Private"};
    return words[static_cast<int>(access)];
}

const char* wordOf(const MacroProcedureInfo& procedure) {
    return procedure.isFunction ? "Function" : "Sub";
}

std::string textOf(const SYS_String& text) { return std::string(text.View()); }

// --- For people: the declarations as a macro writes them, in the order of the lines ------------

std::string prefixOf(MacroAccess access) {
    return access == MacroAccess::None ? std::string() : std::string(wordsOf(access)) + " ";
}

std::string describe(const MacroProcedureInfo& procedure) {
    std::string text =
        prefixOf(procedure.access) + wordOf(procedure) + " " + textOf(procedure.name);
    text += "(";
    for (const MacroArgumentInfo& argument : procedure.arguments) {
        if (&argument != &procedure.arguments.front())
            text += ", ";
        text += (argument.byValue ? "ByVal " : "") + textOf(argument.name);
        text += argument.isArray ? "()" : "";
    }
    text += ")";
    const std::string description = textOf(procedure.description);
    if (!description.empty())
        text += "  ' " + WithoutControls(description.substr(0, description.find_first_of("\r\n")));
    return text;
}

std::string describe(const MacroNameInfo& name) {
    if (name.kind == MacroNameInfo::Constant)
        return prefixOf(name.access) + "Const " + textOf(name.name);
    return "Dim " + textOf(name.name) + (name.kind == MacroNameInfo::Array ? "()" : "");
}

void printPlain(const MacroReport& report) {
    std::multimap<int, std::string> rows;
    for (const MacroProcedureInfo& procedure : report.procedures)
        rows.emplace(procedure.line, describe(procedure));
    for (const MacroNameInfo& name : report.names)
        rows.emplace(name.line, describe(name));
    for (const auto& [line, text] : rows)
        std::printf("%d: %s\n", line + 1, text.c_str());
}

// --- For programs: lines and columns count from one --------------------------------------------

Json asJson(const MacroProcedureInfo& procedure) {
    Json arguments = Json::array();
    for (const MacroArgumentInfo& argument : procedure.arguments)
        arguments.push_back({{"name", textOf(argument.name)},
                             {"passing", argument.byValue ? "ByVal" : "ByRef"},
                             {"isArray", argument.isArray}});
    return {{"name", textOf(procedure.name)},
            {"kind", wordOf(procedure)},
            {"access", wordsOf(procedure.access)},
            {"line", procedure.line + 1},
            {"endLine", procedure.endLine < 0 ? Json() : Json(procedure.endLine + 1)},
            {"arguments", arguments},
            {"description", textOf(procedure.description)}};
}

Json asJson(const MacroNameInfo& name) {
    constexpr const char* kinds[] = {"Variable", "Array", "Constant"};
    return {{"name", textOf(name.name)},
            {"kind", kinds[name.kind]},
            {"access", wordsOf(name.access)},
            {"line", name.line + 1}};
}

Json asJson(const MacroProblem& problem) {
    return {{"code", problem.code},
            {"text", textOf(problem.text)},
            {"line", problem.textLine + 1},
            {"column", problem.column + 1},
            {"countedLine", problem.line + 1},
            {"sourceLine", textOf(problem.sourceLine)}};
}

void printJson(const std::string& file, const MacroReport& report) {
    Json page = {{"file", file},
                 {"parses", report.parses},
                 {"endsEarly", report.endsEarly},
                 {"problem", report.parses && !report.endsEarly ? Json() : asJson(report.problem)},
                 {"procedures", Json::array()},
                 {"names", Json::array()}};
    for (const MacroProcedureInfo& procedure : report.procedures)
        page["procedures"].push_back(asJson(procedure));
    for (const MacroNameInfo& name : report.names)
        page["names"].push_back(asJson(name));
    // A macro may hold any bytes, JSON only UTF-8.
    const std::string text = page.dump(2, ' ', false, Json::error_handler_t::replace);
    std::printf("%s\n", text.c_str());
}

} // namespace

int PrintOutline(const std::string& file, bool asJson) {
    Session session;
    SYS_String text;
    if (!ReadMacroText(file, text))
        return ExitUsage;
    const MacroReport report = session.GetMacro().InspectMacroText(text, SYS_String(file));
    if (asJson)
        printJson(file, report);
    else
        printPlain(report);
    if (report.endsEarly)
        WriteError(DescribeProblem(file, report.problem, "warning: "));
    if (report.parses)
        return ExitDone;
    WriteError(DescribeProblem(file, report.problem));
    return ExitMacroError;
}
