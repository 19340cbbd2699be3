#if defined(_WIN32)

#include "app/ConsoleOutput.h"

#include <gtest/gtest.h>
#include <io.h>
#include <windows.h>

#include <string>

#include "db/DataFile.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

HANDLE handleOf(std::FILE* stream) { return reinterpret_cast<HANDLE>(::_get_osfhandle(::_fileno(stream))); }

TEST(ConsoleOutput, PipesAndFilesAreNoConsole)
{
    HANDLE readEnd = nullptr;
    HANDLE writeEnd = nullptr;
    ASSERT_TRUE(CreatePipe(&readEnd, &writeEnd, nullptr, 0));
    EXPECT_FALSE(isConsole(readEnd));
    EXPECT_FALSE(isConsole(writeEnd));
    CloseHandle(readEnd);
    CloseHandle(writeEnd);
    const testing::ScratchDirectory scratch;
    std::FILE* file = openFile(scratch.path() / "out.txt", "wb");
    ASSERT_NE(file, nullptr);
    EXPECT_FALSE(isConsole(handleOf(file)));
    std::fclose(file);
    EXPECT_FALSE(isConsole(nullptr));
    EXPECT_FALSE(isConsole(INVALID_HANDLE_VALUE));
    // A console is one: RvcliConsole_test.
}

TEST(ConsoleOutput, RedirectGivesWholeCharactersInTheOrderWritten)
{
    const testing::ScratchDirectory scratch;
    std::FILE* out = openFile(scratch.path() / "out.txt", "wb");
    std::FILE* err = openFile(scratch.path() / "err.txt", "wb");
    ASSERT_TRUE(out && err);
    std::u16string received;
    {
        const Utf16Redirect redirect({out, err}, [&](std::u16string_view text) { received += text; });
        // One byte at a time: a letter's two bytes can reach the pipe in different reads.
        for (const char c : std::string("Árvíztűrő ")) std::fputc(c, out);
        std::fputs("tükörfúrógép\r\n", err);
        std::fputs("ŐŰ", out);
    }
    EXPECT_EQ(received,
              u"\u00C1rv\u00EDzt\u0171r\u0151 t\u00FCk\u00F6rf\u00FAr\u00F3g\u00E9p\r\n\u0150\u0170");
    std::fputs("after", out);
    std::fclose(out);
    std::fclose(err);
    EXPECT_EQ(scratch.read("out.txt"), "after")
        << "the stream's own file again, nothing of the redirected text";
    EXPECT_EQ(scratch.read("err.txt"), "");
}

}  // namespace
}  // namespace rovanel

#endif  // _WIN32
