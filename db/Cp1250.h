// Windows-1250 <-> UTF-8, the one conversion at the edge (windows, rvcli output), and UTF-8 -> UTF-16 for
// what Windows itself shows (console, captions).
#pragma once

#include <string>
#include <string_view>

namespace rovanel
{

// Every byte maps to one character; the five bytes the code page leaves undefined become U+FFFD.
[[nodiscard]] std::string cp1250ToUtf8(std::string_view text);

// Characters outside Windows-1250, and malformed UTF-8, become '?'.
[[nodiscard]] std::string utf8ToCp1250(std::string_view text);

// UTF-8 as UTF-16, for the Windows console and window captions; malformed UTF-8 becomes U+FFFD.
[[nodiscard]] std::u16string utf8ToUtf16(std::string_view text);

// The length of `text` without a character cut off at its end, for UTF-8 that arrives in pieces.
[[nodiscard]] std::size_t completeUtf8Length(std::string_view text);

}  // namespace rovanel
