// Windows-1250 <-> UTF-8, the one conversion at the edge (windows, rvcli output).
#pragma once

#include <string>
#include <string_view>

namespace rovanel
{

// Every byte maps to one character; the five bytes the code page leaves undefined become U+FFFD.
[[nodiscard]] std::string cp1250ToUtf8(std::string_view text);

// Characters outside Windows-1250, and malformed UTF-8, become '?'.
[[nodiscard]] std::string utf8ToCp1250(std::string_view text);

}  // namespace rovanel
