// The one Windows-1250 <-> QString conversion of the windows: the core keeps Windows-1250 bytes, a
// window shows Unicode.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace rovanel::forms
{

[[nodiscard]] QString fromCp1250(std::string_view text);
// Characters outside Windows-1250 become '?'.
[[nodiscard]] std::string toCp1250(const QString& text);

}  // namespace rovanel::forms
