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
inline CliRun rvcli(std::string arguments, bool mergeErrors = false)
{
    std::string program = ROVANEL_RVCLI;
#if defined(_WIN32)
    std::replace(program.begin(), program.end(), '/', '\\');
    std::replace(arguments.begin(), arguments.end(), '\'', '"');
    FILE* pipe = ::_popen((program + " " + arguments + (mergeErrors ? " 2>&1" : " 2>NUL")).c_str(), "rb");
#else
    FILE* pipe = ::popen((program + " " + arguments + (mergeErrors ? " 2>&1" : " 2>/dev/null")).c_str(), "r");
#endif
    CliRun run;
    if (!pipe) return run;
    std::array<char, 4096> buffer{};
    for (std::size_t got = 0; (got = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0;)
        run.out.append(buffer.data(), got);
#if defined(_WIN32)
    run.exitCode = ::_pclose(pipe);
#else
    const int status = ::pclose(pipe);
    run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
#endif
    return run;
}

}  // namespace rovanel::testing
