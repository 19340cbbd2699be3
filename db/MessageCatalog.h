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
// 2..49: description builder labels and phrases (docs/data-format.md 5.4). The headings the jump
// buttons search for are literals in db/DescriptionBuilder.cpp, not lines of this table.
inline constexpr int kDescPriceHeading = 2;
inline constexpr int kDescFullPriceLabel = 3;
inline constexpr int kDescNormativeLabel = 4;
inline constexpr int kDescPayableLabel = 5;
inline constexpr int kDescSupportLabel = 6;
inline constexpr int kDescDailyCostLabel = 7;
inline constexpr int kDescFullPriceBasis = 8;
inline constexpr int kDescPayableBasis = 9;
inline constexpr int kDescBasisWord = 10;
inline constexpr int kDescIncreasedWord = 11;
inline constexpr int kDescHighlightedWord = 12;
inline constexpr int kDescProductDataHeading = 13;
inline constexpr int kDescWarningsHeading = 14;
inline constexpr int kDescOtherNamesHeading = 15;
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
// 120..123: the medical aids' price labels and their standard note.
inline constexpr int kAidFullPriceLabel = 120;
inline constexpr int kAidSupportLabel = 121;
inline constexpr int kAidPayableLabel = 122;
inline constexpr int kAidStandardNote = 123;
inline constexpr int kKhNoInteractionData = 95;
inline constexpr int kMhTooMany = 144;
inline constexpr int kMhTooManyCaption = 145;
inline constexpr int kMhNone = 146;
inline constexpr int kMhCaption = 147;
inline constexpr int kMhNoneAmongTaken = 149;
inline constexpr int kRefTooManyRows = 150;  // the detailed list stops after 601 entries
inline constexpr int kRefTooManyRowsCaption = 151;
inline constexpr int kLineCount = 160;
}  // namespace msg

// All kLineCount lines, Windows-1250, without line ends; "NULL" for unused lines.
[[nodiscard]] std::vector<std::string> messageCatalogLines();

}  // namespace rovanel
