// mcr: runs, checks and shows macros from the command line.

#include "Commands.h"
#include "Console.h"
#include "Session.h"

#include <CLI/CLI.hpp>

#include <cerrno>
#include <cstring>

namespace {

// The words behind the options that mcr knows; for a macro, its arguments. A "--" ends the options
// and is dropped.
std::vector<std::string> wordsBehindOptions(const CLI::App& command) {
    std::vector<std::string> arguments = command.remaining();
    if (!arguments.empty() && arguments.front() == "--")
        arguments.erase(arguments.begin());
    return arguments;
}

void addTimeout(CLI::App& command, double& timeout) {
    command.add_option("--timeout", timeout, "End the run after that many seconds")
        ->type_name("SECONDS")
        ->check(CLI::PositiveNumber);
}

int runCommandLine(int argc, char** argv) {
    CLI::App app("Runs macros.", "mcr");
    app.set_help_flag("--help", "Print this help");
    app.set_version_flag("--version", std::string("mcr " MCR_VERSION), "Print the version");
    app.require_subcommand(1);

    RunOptions options;
    CLI::App* run = app.add_subcommand("run", "Run a macro, or one procedure of it");
    run->add_option("FILE", options.file, "Macro file; - is standard input")->required();
    run->add_option("--call", options.procedure,
                    "Run this procedure with the arguments as "
                    "strings, and print its value")
        ->type_name("NAME");
    addTimeout(*run, options.timeout);
    run->prefix_command();
    run->footer("What follows FILE and the options goes to the macro: [ARG...]");

    std::vector<std::string> files;
    CLI::App* check = app.add_subcommand("check", "Parse macros without running them");
    check->add_option("FILE", files, "Macro files")->required();

    CLI::App* eval = app.add_subcommand("eval", "Print the value of an expression");
    addTimeout(*eval, options.timeout);
    // Taken from what remains, because it may begin with a minus.
    eval->prefix_command();

    std::string file;
    CLI::App* tree = app.add_subcommand("tree", "Print the parse tree, one node a line");
    tree->add_option("FILE", file, "Macro file; - is standard input")->required();

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? ExitDone : ExitUsage;
    }

    if (*run) {
        options.arguments = wordsBehindOptions(*run);
        return RunMacro(options);
    }
    if (*check)
        return CheckMacros(files);
    if (*eval) {
        const std::vector<std::string> words = wordsBehindOptions(*eval);
        if (words.size() == 1)
            return EvaluateExpression(words.front(), options.timeout);
        WriteError("mcr: eval takes one expression\n");
        return ExitUsage;
    }
    return PrintTree(file);
}

} // namespace

int main(int argc, char** argv) {
    const int code = runCommandLine(argc, argv);
    if (!Console::Flush()) {
        const char* reason = std::strerror(errno);
        WriteError(std::string("mcr: standard output: ") + reason + "\n");
        return code == ExitDone ? ExitUsage : code;
    }
    return code;
}
