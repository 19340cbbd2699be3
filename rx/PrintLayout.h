// A printed form as data: pages of items, each a text at a position in layout units, drawn with its
// top-left corner at that position. A layout unit is one pixel of the report designer at 96 dots per
// inch (25.4 / 96 mm); the page is A4, upright or sideways. Every renderer (the Qt painter of the
// windows, the PDF writer of rvcli) places a line's baseline kBaselineEm font sizes below its top and
// the next line of a multi-line item kLineSpacingEm font sizes lower. Texts are Windows-1250.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace rovanel
{

inline constexpr double kMillimetresPerLayoutUnit = 25.4 / 96.0;
inline constexpr double kPointsPerLayoutUnit = 72.0 / 96.0;
inline constexpr double kBaselineEm = 0.8;
inline constexpr double kLineSpacingEm = 1.2;
// A4 in layout units (upright: width x height).
inline constexpr double kA4WidthUnits = 210.0 / kMillimetresPerLayoutUnit;
inline constexpr double kA4HeightUnits = 297.0 / kMillimetresPerLayoutUnit;

enum class PageOrientation { Upright, Sideways };

struct PrintItem {
    std::string name;
    int left = 0;
    int top = 0;
    std::string text;  // "\n" separates the lines of a memo
    double fontPoints = 10;
    bool bold = false;
    friend bool operator==(const PrintItem&, const PrintItem&) = default;
};

struct PrintPage {
    std::vector<PrintItem> items;
    friend bool operator==(const PrintPage&, const PrintPage&) = default;
};

struct PrintLayout {
    std::string name;     // "TRp2"
    std::string caption;  // Windows-1250
    PageOrientation orientation = PageOrientation::Upright;
    std::vector<PrintPage> pages;
    friend bool operator==(const PrintLayout&, const PrintLayout&) = default;
};

// A copy with every item of every page moved by (left, top); the layout itself is left as designed, so
// printing twice prints at the same place.
[[nodiscard]] PrintLayout shiftedCopy(const PrintLayout& layout, int left, int top);

// The first item called `name` on the first page that has one; null when there is none.
[[nodiscard]] const PrintItem* findItem(const PrintLayout& layout, std::string_view name);

// The characters of `text` with one blank between them, as the boxed fields of the forms are filled:
// "12345678" gives "1 2 3 4 5 6 7 8". Bytes, so a Windows-1250 letter is one character.
[[nodiscard]] std::string spacedCharacters(std::string_view text);

// Today's local date as "yyyyMMdd".
[[nodiscard]] std::string todayDigits();
// "yyyyMMdd" written as "yyyy.MM.dd."; any other text as it stands.
[[nodiscard]] std::string dottedDate(std::string_view digits);

// The lines of an item's text (split at "\n"; an empty text is one empty line).
[[nodiscard]] std::vector<std::string_view> itemLines(std::string_view text);

}  // namespace rovanel
