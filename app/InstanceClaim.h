// One Rovanel per user on Windows (docs/decisions/single-instance.md): a per-user named mutex is the claim,
// and a later start finds the running main window by its caption and brings it to the foreground.
#pragma once

#include <memory>
#include <string_view>

namespace rovanel
{

// True when a window caption is the main window's: it holds both "Rovanel" and "Lezárva".
[[nodiscard]] bool isMainWindowCaption(std::u16string_view caption);

#if defined(_WIN32)
// A named mutex held while the object lives.
class InstanceClaim
{
public:
    // Nothing when the name is already held, by another process or by this one.
    [[nodiscard]] static std::unique_ptr<InstanceClaim> claim(std::u16string_view name);
    ~InstanceClaim();
    InstanceClaim(const InstanceClaim&) = delete;
    InstanceClaim& operator=(const InstanceClaim&) = delete;

private:
    explicit InstanceClaim(void* mutex) : m_mutex(mutex) {}
    void* m_mutex;
};

// The running main window (an HWND): the last top-level window, hidden ones too, whose caption (up to 249
// characters) is the main window's; null when there is none.
[[nodiscard]] void* findRunningMainWindow();

// Brings the running main window to the foreground; false when there is none.
bool raiseRunningMainWindow();
#endif

}  // namespace rovanel
