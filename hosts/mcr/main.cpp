// mcr: runs, checks and shows macros from the command line.

#include "Commands.h"
#include "Console.h"
#include "EditorCommands.h"
#include "Session.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace {

constexpr double kLongestTimeout = 1e8;

// What the command line says behind the options of a command: the arguments of the macro, or the
// expression. A "--" in front of them ends the options and is dropped; a later one belongs to them.
class Words {
public:
    Words(int argc, char** argv) {
        m_End = 2;
        const std::string command = argc > 1 ? argv[1] : "";
        const bool takesWords = command == "run" || command == "eval" || command == "debug";
        while (m_End < argc && !(takesWords && std::string(argv[m_End]) == "--"))
            ++m_End;
        m_End = std::min(m_End, argc);
        m_Behind.assign(argv + m_End, argv + argc);
    }

    /// How many of the arguments are for the option parser.
    int GetOptionCount() const { return m_End; }

    std::vector<std::string> Of(const CLI::App& command) const {
        std::vector<std::string> words = command.remaining();
        const bool drop = words.empty() && !m_Behind.empty();
        words.insert(words.end(), m_Behind.begin() + (drop ? 1 : 0), m_Behind.end());
        return words;
    }

private:
    int m_End;
    std::vector<std::string> m_Behind; // from the "--" on
};

void addTimeout(CLI::App& command, double& timeout) {
    command.add_option("--timeout", timeout, "End the run after that many seconds")
        ->type_name("SECONDS")
        ->check([](const std::string& text) {
            double seconds = 0;
            const bool valid = CLI::detail::lexical_cast(text, seconds) && seconds > 0 &&
                               seconds <= kLongestTimeout;
            return valid ? std::string() : text + " is no number of seconds";
        });
}

int runCommandLine(int argc, char** argv) {
    const Words words(argc, argv);
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

    CLI::App* eval = app.add_subcommand("eval", "Print the value of an expression: mcr eval EXPR");
    addTimeout(*eval, options.timeout);
    // Taken from what remains, because it may begin with a minus.
    eval->prefix_command();

    std::string file;
    CLI::App* tree = app.add_subcommand("tree", "Print the parse tree, one node a line");
    tree->add_option("FILE", file, "Macro file; - is standard input")->required();

    CLI::App* debug = app.add_subcommand("debug", "Run a macro step by step: help shows how");
    debug->add_option("FILE", file, "Macro file")->required();
    debug->prefix_command();
    debug->footer("What follows FILE goes to the macro: [ARG...]");

    const EditorCommands editorCommands(app);

    try {
        app.parse(words.GetOptionCount(), argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? ExitDone : ExitUsage;
    }

    if (*run) {
        options.arguments = words.Of(*run);
        return RunMacro(options);
    }
    if (*eval) {
        const std::vector<std::string> expression = words.Of(*eval);
        if (expression.size() == 1)
            return EvaluateExpression(expression.front(), options.timeout);
        WriteError("mcr: eval takes one expression\n");
        return ExitUsage;
    }
    if (*debug)
        return DebugMacro(file);
    if (*tree)
        return PrintTree(file);
    return editorCommands.Run().value_or(ExitUsage);
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
