// rvcli's output on a Windows console (docs/decisions/windows-build.md). Redirected output (a pipe, a file)
// stays UTF-8 bytes as on every system; a console gets the same text as UTF-16 through WriteConsoleW, so
// Hungarian letters show whatever the console's code page (852, 1250).
#pragma once

#if defined(_WIN32)

#include <cstdio>
#include <functional>
#include <memory>
#include <string_view>
#include <thread>
#include <vector>

namespace rovanel
{

// True when `handle` (a HANDLE) is a console: GetConsoleMode succeeds on it. A pipe or a file is not.
[[nodiscard]] bool isConsole(void* handle);

// While it lives, what the C library writes to `streams` goes through one pipe to `sink`, as UTF-16 in
// whole characters and in the order written, instead of to the streams' own files. The streams are made
// unbuffered. When the destructor returns, everything written before has reached the sink.
class Utf16Redirect
{
public:
    using Sink = std::function<void(std::u16string_view)>;
    Utf16Redirect(std::vector<std::FILE*> streams, Sink sink);
    ~Utf16Redirect();
    Utf16Redirect(const Utf16Redirect&) = delete;
    Utf16Redirect& operator=(const Utf16Redirect&) = delete;

private:
    struct Redirected {
        std::FILE* stream;
        int saved;
    };
    std::vector<Redirected> m_redirected;
    std::thread m_reader;
};

// Standard output and standard error, those of them that are a console, written to it through
// WriteConsoleW; nothing when neither is a console.
[[nodiscard]] std::unique_ptr<Utf16Redirect> redirectConsoleOutput();

}  // namespace rovanel

#endif  // _WIN32
