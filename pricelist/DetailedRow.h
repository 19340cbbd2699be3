// One row of the detailed list: the 35 cells that GetDailyPrice builds from a product's gy.ful block
// (prices, the three kinds of support with their payable amounts and daily costs, the support words and
// codes), and the columns those cells sit in. All texts are Windows-1250.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rovanel
{

class DataFile;

inline constexpr int kDetailedColumnCount = 35;

// How the sort compares a column (RefLstCompare); fixed by the column's index.
enum class SortClass { Caption, Text, Decimal, Category, Integer };

struct DetailedColumn {
    const char* caption;  // Windows-1250
    int designedWidth;    // pixels
    SortClass sortClass;
};
[[nodiscard]] const std::array<DetailedColumn, kDetailedColumnCount>& detailedColumns();

// Column numbers the code refers to by name.
namespace column
{
inline constexpr int kCaption = 0, kFullPrice = 1, kNormativeSupport = 2, kNormativeDailyCost = 4;
inline constexpr int kNormativeCategory = 5, kNormativeGroup = 6, kIncreasedDailyCost = 9;
inline constexpr int kIncreasedCategory = 10, kIncreasedGroup = 11, kHighlightedDailyCost = 14;
inline constexpr int kHighlightedCategory = 15, kHighlightedGroup = 16, kTtt = 20, kRecord = 21;
inline constexpr int kForm = 27, kAtc = 33;
}  // namespace column

// The three kinds of support, in the order of the category field's positions.
enum class SupportKind { Normative = 0, Increased = 1, Highlighted = 2 };

// 1 plain listing; 2, 3, 4 the products of one normative, increased or highlighted fixed group.
enum class ListingMode { Plain = 1, Normative = 2, Increased = 3, Highlighted = 4 };

// The fixed-group state the rows and the fixed-group listings share: a kind is "seen" once a row's
// category of that kind is "3", and stays seen until ResetLastFixVars; the stored ids are the groups a
// fixed-group listing keeps.
struct FixedGroupState {
    std::array<bool, 3> seen{};
    std::array<std::string, 3> storedIds;
};

struct DetailedRow {
    std::array<std::string, kDetailedColumnCount> cells;  // cells[0] is the item caption
    std::int32_t record = -1;
};

// The lines of product `record`'s block that the row reads: from its code line up to and including the
// support line after "#ha" (or up to "#vege", the end of the file or a bound of 64000 bytes). The code
// line is cut to 19 bytes, the support line to 1254, every other line to 255. Nothing when nevpos.dat
// gives no position inside gy.ful.
[[nodiscard]] std::optional<std::vector<std::string>> rowBlockLines(DataFile& gyful, DataFile& nevpos,
                                                                    std::int64_t record);

// Builds the row of product `record` named `name` from its block lines; nothing when the listing mode
// or the hide-TT switch skips the product. Sets the seen flags of `groups` for the row's "3" categories.
[[nodiscard]] std::optional<DetailedRow> GetDailyPrice(const std::vector<std::string>& blockLines,
                                                       std::int32_t record, std::string_view name,
                                                       ListingMode mode, bool hideDeleted,
                                                       FixedGroupState& groups);

// The word of the "DOT" rating and of the dispensing digit ("Rend"), as the row shows them.
[[nodiscard]] std::string targetCostWord(std::string_view rating);
[[nodiscard]] std::string dispensingWord(std::string_view digit);

}  // namespace rovanel
