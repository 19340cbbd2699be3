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

// Text between the core's files (Windows-1250, CR LF) and a plain text box (Unicode, LF).
[[nodiscard]] QString boxText(std::string_view fileText);
[[nodiscard]] std::string fileText(const QString& boxText);

}  // namespace rovanel::forms
