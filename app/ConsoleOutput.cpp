#if defined(_WIN32)

#include "app/ConsoleOutput.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <string>

#include "db/Cp1250.h"

namespace rovanel
{
namespace
{

HANDLE handleOf(std::FILE* stream) { return reinterpret_cast<HANDLE>(::_get_osfhandle(::_fileno(stream))); }

// Reads the pipe until every writer has closed it; a character cut between two reads waits for its end.
void forward(HANDLE pipe, const Utf16Redirect::Sink& sink)
{
    std::array<char, 4096> buffer{};
    std::string pending;
    DWORD got = 0;
    while (ReadFile(pipe, buffer.data(), static_cast<DWORD>(buffer.size()), &got, nullptr)) {
        pending.append(buffer.data(), got);
        const std::size_t whole = completeUtf8Length(pending);
        if (whole == 0) continue;
        sink(utf8ToUtf16(std::string_view(pending).substr(0, whole)));
        pending.erase(0, whole);
    }
    if (!pending.empty()) sink(utf8ToUtf16(pending));
    CloseHandle(pipe);
}

}  // namespace

bool isConsole(void* handle)
{
    DWORD mode = 0;
    return handle && handle != INVALID_HANDLE_VALUE && GetConsoleMode(handle, &mode);
}

Utf16Redirect::Utf16Redirect(std::vector<std::FILE*> streams, Sink sink)
{
    HANDLE readEnd = nullptr;
    HANDLE writeEnd = nullptr;
    if (!CreatePipe(&readEnd, &writeEnd, nullptr, 0)) return;
    const int writer = ::_open_osfhandle(reinterpret_cast<intptr_t>(writeEnd), _O_WRONLY | _O_BINARY);
    if (writer < 0) {
        CloseHandle(writeEnd);
        CloseHandle(readEnd);
        return;
    }
    for (std::FILE* stream : streams) {
        std::fflush(stream);
        const int descriptor = ::_fileno(stream);
        const int saved = ::_dup(descriptor);
        if (saved < 0) continue;
        if (::_dup2(writer, descriptor) != 0) {
            ::_close(saved);
            continue;
        }
        std::setvbuf(stream, nullptr, _IONBF, 0);
        m_redirected.push_back({stream, saved});
    }
    ::_close(writer);
    // The descriptors' copies of the write end are now the only ones: once the destructor puts the streams
    // back, the reader sees the pipe end.
    m_reader = std::thread(forward, readEnd, std::move(sink));
}

Utf16Redirect::~Utf16Redirect()
{
    for (const Redirected& r : m_redirected) {
        std::fflush(r.stream);
        ::_dup2(r.saved, ::_fileno(r.stream));
        ::_close(r.saved);
    }
    if (m_reader.joinable()) m_reader.join();
}

std::unique_ptr<Utf16Redirect> redirectConsoleOutput()
{
    std::vector<std::FILE*> streams;
    HANDLE console = nullptr;
    for (std::FILE* stream : {stdout, stderr}) {
        if (!isConsole(handleOf(stream))) continue;
        streams.push_back(stream);
        if (!console) console = handleOf(stream);
    }
    if (streams.empty()) return nullptr;
    // The descriptors' own handles are closed when they are pointed at the pipe; the writer keeps a copy.
    HANDLE own = nullptr;
    if (!DuplicateHandle(GetCurrentProcess(), console, GetCurrentProcess(), &own, 0, FALSE,
                         DUPLICATE_SAME_ACCESS))
        return nullptr;
    const std::shared_ptr<void> owned(own, CloseHandle);
    return std::make_unique<Utf16Redirect>(std::move(streams), [owned](std::u16string_view text) {
        while (!text.empty()) {
            DWORD written = 0;
            const auto count = static_cast<DWORD>(std::min<std::size_t>(text.size(), 8192));
            if (!WriteConsoleW(owned.get(), text.data(), count, &written, nullptr) || written == 0) return;
            text.remove_prefix(written);
        }
    });
}

}  // namespace rovanel

#endif  // _WIN32
