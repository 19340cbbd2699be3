// Runs the built rvcli (ROVANEL_RVCLI) with arguments and gives its exit code and standard output.
#pragma once

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <string>

namespace rovanel::testing
{

struct CliRun {
    int exitCode = -1;
    std::string out;
};

// `mergeErrors` adds the standard error to the output (for the messages rvcli prints there).
inline CliRun rvcli(const std::string& arguments, bool mergeErrors = false)
{
    const std::string command =
        std::string(ROVANEL_RVCLI) + " " + arguments + (mergeErrors ? " 2>&1" : " 2>/dev/null");
    CliRun run;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe) return run;
    std::array<char, 4096> buffer{};
    std::size_t got = 0;
    while ((got = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0) run.out.append(buffer.data(), got);
    const int status = ::pclose(pipe);
    run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

}  // namespace rovanel::testing
