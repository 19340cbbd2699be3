// A message box the core asks a window to show: text, caption and icon, all Windows-1250.
#pragma once

#include <string>

namespace rovanel
{

enum class MessageIcon { None, Information, Warning, Stop };

struct Message {
    std::string text;
    std::string caption;
    MessageIcon icon = MessageIcon::None;
    bool taskModal = false;  // shown without owner, task-modal (MB_TASKMODAL on Windows)

    friend bool operator==(const Message&, const Message&) = default;
};

}  // namespace rovanel
