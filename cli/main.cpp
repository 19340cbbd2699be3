// rvcli: Rovanel's core from the command line. One subcommand per file; output is UTF-8 (a Windows console
// gets the same text through WriteConsoleW, app/ConsoleOutput.h).
// Exit codes: 0 done, 1 not found, refused or inconsistent, 2 usage error or unreadable input.
#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "cli/Commands.h"

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#include <windows.h>
// shellapi.h needs windows.h first.
#include <shellapi.h>

#include "app/ConsoleOutput.h"

namespace
{

// The arguments as UTF-8, whatever the console's code page, and output written byte for byte (no LF
// turned into CR LF), so rvcli reads and prints the same on every system.
std::vector<std::string> windowsArguments()
{
    ::_setmode(::_fileno(stdout), _O_BINARY);
    ::_setmode(::_fileno(stderr), _O_BINARY);
    int count = 0;
    wchar_t** wide = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    std::vector<std::string> args;
    for (int i = 1; wide && i < count; ++i) {
        const int size = ::WideCharToMultiByte(CP_UTF8, 0, wide[i], -1, nullptr, 0, nullptr, nullptr);
        std::string utf8(static_cast<std::size_t>(size > 0 ? size : 1), '\0');
        ::WideCharToMultiByte(CP_UTF8, 0, wide[i], -1, utf8.data(), size, nullptr, nullptr);
        utf8.resize(utf8.size() - 1);
        args.push_back(std::move(utf8));
    }
    ::LocalFree(wide);
    return args;
}

}  // namespace
#endif

int main(int argc, char** argv)
{
#if defined(_WIN32)
    (void)argc;
    (void)argv;
    std::vector<std::string> args = windowsArguments();
    // Until main returns; a pipe or a file still gets the bytes as they are.
    const std::unique_ptr<rovanel::Utf16Redirect> console = rovanel::redirectConsoleOutput();
#else
    std::vector<std::string> args(argv + 1, argv + argc);
#endif
    if (args.empty()) {
        std::fputs(rovanel::cli::usageText().c_str(), stderr);
        return 2;
    }
    const std::string command = args.front();
    args.erase(args.begin());
    if (command == "--help" || command == "-h") {
        std::fputs(rovanel::cli::helpText().c_str(), stdout);
        return 0;
    }
    if (command == "--version") {
        std::puts("rvcli (Rovanel) " ROVANEL_VERSION);
        return 0;
    }
    if (command == "--man") {
        std::fputs(rovanel::cli::manualPage(ROVANEL_VERSION).c_str(), stdout);
        return 0;
    }
    for (const rovanel::cli::Command& c : rovanel::cli::commands()) {
        if (command != c.name) continue;
        if (std::find(args.begin(), args.end(), "--help") != args.end()) {
            std::fputs(rovanel::cli::commandHelpText(c).c_str(), stdout);
            return 0;
        }
        return c.run(rovanel::cli::Invocation{std::move(args), c});
    }
    std::fprintf(stderr, "rvcli: unknown command '%s'\n", command.c_str());
    std::fputs(rovanel::cli::usageText().c_str(), stderr);
    return 2;
}
