#include "app/InstanceClaim.h"

#include <gtest/gtest.h>

#if defined(_WIN32)
#include <windows.h>
#endif

namespace rovanel
{
namespace
{

TEST(InstanceClaim, MainWindowCaptionHoldsRovanelAndTheClosingDate)
{
    struct Case {
        const char* what;
        std::u16string_view caption;
        bool expected;
    };
    const Case cases[] = {
        {"main window's title", u"Rovanel 1.0 - Lez\u00E1rva: 2025.01.31.", true},
        {"both words, other order", u"Lez\u00E1rva 2025.01.31. Rovanel", true},
        {"no closing date", u"Rovanel 1.0", false},
        {"closing date only", u"Lez\u00E1rva: 2025.01.31.", false},
        {"accent missing", u"Rovanel 1.0 - Lezarva: 2025.01.31.", false},
        {"other case", u"ROVANEL 1.0 - LEZ\u00C1RVA: 2025.01.31.", false},
        {"empty", u"", false},
    };
    for (const Case& c : cases) EXPECT_EQ(isMainWindowCaption(c.caption), c.expected) << c.what;
}

#if defined(_WIN32)
TEST(InstanceClaim, SameNameIsHeldUntilReleased)
{
    constexpr std::u16string_view kName = u"rovanel-claim-test";
    auto first = InstanceClaim::claim(kName);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(InstanceClaim::claim(kName), nullptr) << "the second claim in the same process";
    EXPECT_NE(InstanceClaim::claim(u"rovanel-claim-test-other"), nullptr);
    first.reset();
    EXPECT_NE(InstanceClaim::claim(kName), nullptr) << "released";
}

// A hidden top-level window of a class registered here.
class TestWindow
{
public:
    explicit TestWindow(const wchar_t* caption)
    {
        static const ATOM windowClass = [] {
            WNDCLASSW description = {};
            description.lpfnWndProc = DefWindowProcW;
            description.hInstance = GetModuleHandleW(nullptr);
            description.lpszClassName = L"RovanelInstanceClaimTest";
            return RegisterClassW(&description);
        }();
        m_window = CreateWindowExW(0, reinterpret_cast<LPCWSTR>(static_cast<ULONG_PTR>(windowClass)), caption,
                                   WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr,
                                   GetModuleHandleW(nullptr), nullptr);
    }
    ~TestWindow() { DestroyWindow(m_window); }
    HWND handle() const { return m_window; }

private:
    HWND m_window = nullptr;
};

TEST(InstanceClaim, FindsTheWindowWhoseCaptionIsTheMainWindows)
{
    if (findRunningMainWindow()) GTEST_SKIP() << "a Rovanel main window is open on this desktop";
    const TestWindow other(L"Rovanel 1.0");
    ASSERT_NE(other.handle(), nullptr);
    EXPECT_EQ(findRunningMainWindow(), nullptr) << "a caption without the closing date";
    {
        const TestWindow main(L"Rovanel 1.0 - Lez\u00E1rva: 2025.01.31.");
        ASSERT_NE(main.handle(), nullptr);
        EXPECT_EQ(findRunningMainWindow(), main.handle());
    }
    EXPECT_EQ(findRunningMainWindow(), nullptr) << "once the main window is gone";
    EXPECT_FALSE(raiseRunningMainWindow());
}
#endif

}  // namespace
}  // namespace rovanel
