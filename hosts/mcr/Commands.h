#pragma once

// What the commands of mcr do. Each gives the exit code of the program.

#include <string>
#include <vector>

struct RunOptions {
    std::string file;
    std::string procedure;              ///< runs this one alone; empty: the whole macro
    std::vector<std::string> arguments; ///< of the procedure
    double timeout = 0;                 ///< seconds; 0: no limit
};

int RunMacro(const RunOptions& options);
int EvaluateExpression(const std::string& expression, double timeout);
int PrintTree(const std::string& file);
/// Reads the debugger's commands from standard input.
int DebugMacro(const std::string& file);
