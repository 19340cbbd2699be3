// The instance claim and the window search on Windows.
#if defined(_WIN32)

#include <windows.h>

#include "app/InstanceClaim.h"

namespace rovanel
{
namespace
{

static_assert(sizeof(wchar_t) == sizeof(char16_t));

BOOL CALLBACK visitWindow(HWND window, LPARAM found)
{
    if (!window) return FALSE;
    DWORD process = 0;
    if (GetWindowThreadProcessId(window, &process) == 0) return FALSE;
    wchar_t caption[250] = {};
    const int length = GetWindowTextW(window, caption, 250);
    const std::u16string_view text(reinterpret_cast<const char16_t*>(caption),
                                   static_cast<std::size_t>(length > 0 ? length : 0));
    // The last matching window wins.
    if (isMainWindowCaption(text)) *reinterpret_cast<HWND*>(found) = window;
    return TRUE;
}

}  // namespace

std::unique_ptr<InstanceClaim> InstanceClaim::claim(std::u16string_view name)
{
    const std::wstring wideName(name.begin(), name.end());
    HANDLE mutex = CreateMutexW(nullptr, TRUE, wideName.c_str());
    if (mutex && GetLastError() == ERROR_ALREADY_EXISTS) {
        CloseHandle(mutex);
        return nullptr;
    }
    // A mutex the system refuses to make is no claim, but nobody else holds the name either.
    return std::unique_ptr<InstanceClaim>(new InstanceClaim(mutex));
}

InstanceClaim::~InstanceClaim()
{
    if (m_mutex) CloseHandle(m_mutex);
}

void* findRunningMainWindow()
{
    HWND found = nullptr;
    EnumWindows(visitWindow, reinterpret_cast<LPARAM>(&found));
    return found;
}

bool raiseRunningMainWindow()
{
    HWND window = static_cast<HWND>(findRunningMainWindow());
    if (!window) return false;
    SetForegroundWindow(window);
    return true;
}

}  // namespace rovanel

#endif  // _WIN32
