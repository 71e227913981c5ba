// sketch: a small design tool without a window. It draws by gestures or by macros, records the
// gestures as macros, and writes the drawing as SVG.

#include "Gestures.h"
#include "Session.h"

#include <CLI/CLI.hpp>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <unistd.h>

namespace {

struct Arguments {
    std::string input;
    std::string macro = "-";
    std::string svg;
    std::string log; // only so that the option is known: the engine reads it by itself
};

int reportFile(const std::string& path) {
    const char* reason = errno != 0 ? std::strerror(errno) : "cannot be used";
    std::cout.flush();
    std::cerr << "sketch: " << path << ": " << reason << '\n';
    return ExitUsage;
}

/// A file to write, "-" being standard output.
class Output {
public:
    explicit Output(const std::string& path) : m_Path(path) {
        errno = 0;
        if (path != "-")
            m_File.open(path, std::ios::binary);
    }

    bool IsOpen() const { return m_Path == "-" || m_File.is_open(); }
    std::ostream& GetStream() { return m_Path == "-" ? std::cout : m_File; }
    /// The exit code: `code`, or that of a file that could not be written.
    int Close(int code) {
        errno = 0;
        GetStream().flush();
        if (GetStream().good())
            return code;
        const int failure = reportFile(m_Path);
        return code == ExitDone ? failure : code;
    }

private:
    std::string m_Path;
    std::ofstream m_File;
};

int writePicture(const Session& session, const std::string& path, int code) {
    Output output(path);
    if (!output.IsOpen())
        return reportFile(path);
    output.GetStream() << session.GetPicture();
    return output.Close(code);
}

int play(const Arguments& arguments) {
    Session session;
    int code = ExitDone;
    return session.Play(arguments.input, code) ? writePicture(session, arguments.svg, code) : code;
}

int recordLines(Lines& lines, const std::string& name, bool goesOn, const Arguments& arguments) {
    Output macro(arguments.macro);
    if (!macro.IsOpen())
        return reportFile(arguments.macro);
    Session session;
    const bool isDone = session.Record(lines, name, goesOn, macro.GetStream());
    const int code = macro.Close(isDone ? ExitDone : ExitFault);
    return arguments.svg.empty() ? code : writePicture(session, arguments.svg, code);
}

int record(const Arguments& arguments) {
    if (arguments.input == "-") {
        StreamLines lines(std::cin);
        return recordLines(lines, "-", false, arguments);
    }
    errno = 0;
    std::ifstream file(arguments.input, std::ios::binary);
    if (std::filesystem::is_directory(arguments.input))
        errno = EISDIR;
    if (!file || errno == EISDIR)
        return reportFile(arguments.input);
    StreamLines lines(file);
    return recordLines(lines, arguments.input, false, arguments);
}

int prompt(const Arguments& arguments) {
    if (!isatty(STDIN_FILENO) || !isatty(STDOUT_FILENO)) {
        StreamLines lines(std::cin);
        return recordLines(lines, "-", true, arguments);
    }
    std::cout << "Gestures, please; help lists them.\n";
    TerminalLines lines;
    const int code = recordLines(lines, "-", true, arguments);
    return code == ExitFault ? ExitDone : code; // the user has seen what went wrong
}

void addOutputs(CLI::App& command, Arguments& arguments, bool records) {
    const auto add = [&](const char* name, std::string& path, const char* meaning) {
        command.add_option(name, path, meaning)->type_name("FILE");
    };
    add("--svg", arguments.svg, "Where the picture goes; - is standard output");
    if (!records)
        return;
    add("--macro", arguments.macro, "Where the recorded macro goes, if not to standard output");
    add("--log", arguments.log, "Keep a log of what is recorded, too");
}

} // namespace

int main(int argc, char** argv) {
    CLI::App app("Draws by gestures and by macros. Without a command it is: prompt", "sketch");
    app.set_help_flag("--help", "Print this help");
    app.set_version_flag("--version", std::string("sketch " SKETCH_VERSION), "Print the version");
    app.require_subcommand(0, 1);

    Arguments arguments;
    addOutputs(app, arguments, true);
    CLI::App* playing = app.add_subcommand("play", "Run a macro and write the picture");
    playing->add_option("MACRO", arguments.input, "Macro file")->required();
    addOutputs(*playing, arguments, false);
    CLI::App* recording = app.add_subcommand("record", "Do what a script of gestures says and "
                                                       "record it as a macro");
    recording->add_option("GESTURES", arguments.input, "Gestures; - is standard input")->required();
    addOutputs(*recording, arguments, true);
    recording->footer("Gestures, one a line:\n" + Gestures::Describe());
    CLI::App* prompting = app.add_subcommand("prompt", "Take gestures as they are typed");
    addOutputs(*prompting, arguments, true);

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? ExitDone : ExitUsage;
    }
    if (*playing) {
        if (arguments.svg.empty())
            arguments.svg = "-";
        return play(arguments);
    }
    return *recording ? record(arguments) : prompt(arguments);
}
