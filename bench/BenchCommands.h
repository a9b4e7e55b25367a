#pragma once

// tolvisk-bench commands. A command registers itself with a static BenchCommand object in its
// own file:  static BenchCommand cmd("name", "ARGS", "what it does", &function);

#include <string>
#include <vector>

using BenchFunction = int (*)(const std::vector<std::string>& args);

struct BenchCommand {
    BenchCommand(const char* name, const char* usage, const char* help, BenchFunction run);
    const char* name;
    const char* usage;
    const char* help;
    BenchFunction run;
};

std::vector<const BenchCommand*>& benchCommands();
