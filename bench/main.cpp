#include "BenchCommands.h"

#include <cstdio>
#include <cstring>

BenchCommand::BenchCommand(const char* n, const char* u, const char* h, BenchFunction r)
    : name(n), usage(u), help(h), run(r) {
    benchCommands().push_back(this);
}

std::vector<const BenchCommand*>& benchCommands() {
    static std::vector<const BenchCommand*> commands;
    return commands;
}

int main(int argc, char* argv[]) {
    if (argc >= 2) {
        for (const BenchCommand* c : benchCommands()) {
            if (std::strcmp(argv[1], c->name) == 0) {
                std::vector<std::string> args(argv + 2, argv + argc);
                return c->run(args);
            }
        }
    }
    std::fprintf(stderr, "usage: tolvisk-bench COMMAND ARGS\n");
    for (const BenchCommand* c : benchCommands())
        std::fprintf(stderr, "  %s %s\n      %s\n", c->name, c->usage, c->help);
    return 2;
}
