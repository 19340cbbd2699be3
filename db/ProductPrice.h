// The price part of a product's gy.ful block: the two price lines after "#ar" and the support line
// after "#ha", as the description builder, the drug list window's same-ATC prices and the detailed
// list read them.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rovanel
{

// Support line fields (1-based numbers as docs/data-format.md 5.3 lists them).
inline constexpr std::size_t kSupportFieldCount = 22;
inline constexpr std::size_t kFieldDailyDoses = 1;
inline constexpr std::size_t kFieldIndicationSupports = 6;
inline constexpr std::size_t kFieldDispensing = 7;
inline constexpr std::size_t kFieldDeleted = 9;  // TT flag

// The support line cut as a strtok walk cuts it, the delimiter changing from field to field (";" eight
// times, then "^", "@", "#", "$", "*", "[", "]", "{", "}", "(", ")", "\xB3", "@", then the line
// end); leading delimiters of a field are skipped, so empty fields merge. Missing fields are empty.
[[nodiscard]] std::array<std::string, kSupportFieldCount> splitSupportLine(std::string_view line);

// A number as atof reads it: leading blanks, sign, digits, "." and digits; stops at anything else;
// 0 when there are no digits. Never depends on the locale.
[[nodiscard]] float leadingNumber(std::string_view text);

// The package's daily-dose count: its first "," read as a decimal point ("1,5" is 1.5).
[[nodiscard]] float dailyDoses(std::string_view field);

// One entry of the indication-bound support list ("_EU12/a 2100"): the code is cut at its first blank;
// a code holding none of "&", "_" and "*" is a highlighted (kiemelt) support, any other an increased
// (emelt) one.
struct IndicationSupport {
    std::string code;
    long amount = 0;
    bool highlighted = false;
};
[[nodiscard]] std::vector<IndicationSupport> indicationSupports(std::string_view field);

// What a block says about prices. `lines` are the block's lines from its code line on.
struct PriceData {
    bool hasPriceLines = false;  // "#ar" is followed by at least one price line
    float fullPrice = 0;
    float normativeSupport = 0;
    std::array<std::string, kSupportFieldCount> support;  // all empty without a "#ha" line
};
[[nodiscard]] PriceData priceData(const std::vector<std::string_view>& lines);

// Daily cost of a package: the full price (when the full-price daily cost setting is on) or
// `payable`, divided by the daily doses; nothing when the price is 0 or the dose count is not positive.
[[nodiscard]] std::optional<float> dailyCost(float fullPrice, float payable, float doses, bool fromFullPrice);

// Decimal text with a fixed number of decimals, as printf's "%.1f" writes it, in any locale.
[[nodiscard]] std::string fixedDecimals(double value, int decimals);

// True when `line` is one of the block's marker lines ("#ar", ..., "#vege"), blanks around it allowed.
[[nodiscard]] bool isMarkerLine(std::string_view line);

// The lines after marker line `marker` up to the next marker line; empty when the marker is missing.
[[nodiscard]] std::vector<std::string_view> sectionLines(const std::vector<std::string_view>& lines,
                                                         std::string_view marker);

}  // namespace rovanel
