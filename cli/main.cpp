// rvcli: Rovanel's core from the command line. One subcommand per file; output is UTF-8.
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "cli/Commands.h"

int main(int argc, char** argv)
{
    std::vector<std::string> args(argv + 1, argv + argc);
    if (args.empty()) {
        std::fputs(rovanel::cli::usageText().c_str(), stderr);
        return 2;
    }
    const std::string command = args.front();
    args.erase(args.begin());
    for (const rovanel::cli::Command& c : rovanel::cli::commands())
        if (command == c.name) return c.run(rovanel::cli::Invocation{std::move(args), c});
    std::fprintf(stderr, "rvcli: unknown command '%s'\n", command.c_str());
    std::fputs(rovanel::cli::usageText().c_str(), stderr);
    return 2;
}
