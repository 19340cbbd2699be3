// Runs the built rvcli (ROVANEL_RVCLI) with arguments and gives its exit code and standard output.
#pragma once

#if !defined(_WIN32)
#include <sys/wait.h>
#endif

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>

namespace rovanel::testing
{

struct CliRun {
    int exitCode = -1;
    std::string out;
};

// `mergeErrors` adds the standard error to the output (for the messages rvcli prints there). Arguments are
// quoted as for sh; on Windows cmd.exe runs the command, with the quotes made double and the program's
// path written with backslashes.
inline CliRun rvcli(const std::string& arguments, bool mergeErrors = false)
{
#if defined(_WIN32)
    std::string program = ROVANEL_RVCLI, windowsArguments = arguments;
    std::replace(program.begin(), program.end(), '/', '\\');
    std::replace(windowsArguments.begin(), windowsArguments.end(), '\'', '"');
    const std::string command = program + " " + windowsArguments + (mergeErrors ? " 2>&1" : " 2>NUL");
    CliRun run;
    FILE* pipe = ::_popen(command.c_str(), "rb");
#else
    const std::string command =
        std::string(ROVANEL_RVCLI) + " " + arguments + (mergeErrors ? " 2>&1" : " 2>/dev/null");
    CliRun run;
    FILE* pipe = ::popen(command.c_str(), "r");
#endif
    if (!pipe) return run;
    std::array<char, 4096> buffer{};
    std::size_t got = 0;
    while ((got = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0) run.out.append(buffer.data(), got);
#if defined(_WIN32)
    run.exitCode = ::_pclose(pipe);
#else
    const int status = ::pclose(pipe);
    run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
#endif
    return run;
}

}  // namespace rovanel::testing
