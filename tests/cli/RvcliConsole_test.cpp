// rvcli on a Windows console: Hungarian letters reach the console as characters, whatever its code page.
// (Redirected output stays UTF-8 bytes: every other rvcli test reads it through a pipe.)
#if defined(_WIN32)

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <string>

namespace
{

TEST(RvcliConsole, HungarianLettersShowOnACodePage852Console)
{
    // A console of its own when the test has none it can write to (under Wine started without a terminal
    // the process has a console that is none); kept for the rest of the run, as a console test has one.
    HANDLE existing = CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    DWORD mode = 0;
    if (existing == INVALID_HANDLE_VALUE || !GetConsoleMode(existing, &mode)) {
        FreeConsole();
        ASSERT_TRUE(AllocConsole());
    }
    if (existing != INVALID_HANDLE_VALUE) CloseHandle(existing);
    const UINT codePage = GetConsoleOutputCP();
    ASSERT_TRUE(SetConsoleOutputCP(852)) << "the code page of a Hungarian console";
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    HANDLE screen =
        CreateConsoleScreenBuffer(GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                  &inherited, CONSOLE_TEXTMODE_BUFFER, nullptr);
    ASSERT_NE(screen, INVALID_HANDLE_VALUE);

    std::wstring program = ROVANEL_RVCLI L"";
    std::replace(program.begin(), program.end(), L'/', L'\\');
    std::wstring command = L"\"" + program + L"\" bno-find \"" ROVANEL_DEMO_DB L"\" I10H0";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = screen;
    start.hStdError = screen;
    PROCESS_INFORMATION process{};
    ASSERT_TRUE(CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                               &process));
    WaitForSingleObject(process.hProcess, 60000);
    DWORD exitCode = 1;
    GetExitCodeProcess(process.hProcess, &exitCode);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);

    EXPECT_EQ(exitCode, 0u);
    CONSOLE_SCREEN_BUFFER_INFO info{};
    GetConsoleScreenBufferInfo(screen, &info);
    std::wstring shown(static_cast<std::size_t>(info.dwSize.X) * 3, L' ');  // the first three rows
    DWORD read = 0;
    ReadConsoleOutputCharacterW(screen, shown.data(), static_cast<DWORD>(shown.size()), COORD{0, 0}, &read);
    EXPECT_NE(shown.find(L"I10H0 Magasv\u00E9rnyom\u00E1s-betegs\u00E9g (els\u0151dleges)  "),
              std::wstring::npos)
        << "shown: " << std::string(shown.begin(), shown.end());
    CloseHandle(screen);
    SetConsoleOutputCP(codePage);
}

}  // namespace

#endif  // _WIN32
