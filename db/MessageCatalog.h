// The texts of MSG.DAT by line number: the one place they are written down. The generator writes them
// out; the readers fetch them from the loaded message table by the numbers named here.
#pragma once

#include <string>
#include <vector>

namespace rovanel
{

// Line numbers of the message table that the code uses.
namespace msg
{
inline constexpr int kDescriptionTitle = 1;
// 2..49: description builder phrases and labels (see db/DescriptionBuilder.cpp)
inline constexpr int kKhCaption72 = 69;
inline constexpr int kKhCodeLineTooLong = 70;
inline constexpr int kKhCaption70 = 71;
inline constexpr int kKhTooManyFound = 72;
inline constexpr int kKhCaptionLimits = 81;
inline constexpr int kKhTooManyCareful = 86;
inline constexpr int kKhTooManyPooledCareful = 87;
inline constexpr int kKhTooManyAvoid = 88;
inline constexpr int kKhTooManyPooledAvoid = 89;
inline constexpr int kKhReportHeading = 90;
inline constexpr int kKhCarefulPhrase = 91;
inline constexpr int kKhAvoidPhrase = 92;
inline constexpr int kKhNothingFound = 93;
inline constexpr int kKhNothingFoundCaption = 94;
inline constexpr int kMhTooMany = 144;
inline constexpr int kMhTooManyCaption = 145;
inline constexpr int kMhNone = 146;
inline constexpr int kMhCaption = 147;
inline constexpr int kMhNoneAmongTaken = 149;
inline constexpr int kLineCount = 160;
}  // namespace msg

// All kLineCount lines, Windows-1250, without line ends; "NULL" for unused lines.
[[nodiscard]] std::vector<std::string> messageCatalogLines();

}  // namespace rovanel
