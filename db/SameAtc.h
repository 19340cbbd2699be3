// The drug list window's ATC levels and same-ATC listing: the levels of a product's code named from
// atcnren5.dat, and the products of one level with their daily prices, ordered by price or by name.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "db/AtcCode.h"
#include "db/FoundDrugs.h"

namespace rovanel
{

struct StartupTables;

struct AtcLevels {
    std::vector<std::string> lines;  // trimmed atcnren5.dat lines, at most five
    std::size_t levelLength = 0;     // length of the last group found (0 when none)
};

// For each level length in turn, the first ATC group (KOD.DAT table 2) equal to the trimmed code's
// prefix of that length; its atcnren5.dat line is listed.
[[nodiscard]] AtcLevels atcLevels(const StartupTables& tables, std::string_view code);

enum class SameAtcOrder { Price, Name };

struct SameAtcList {
    std::vector<std::string> lines;  // "NAME  12.3 Ft/nap" or "NAME  N.á."
    std::vector<FoundDrug> found;    // entry i is the product of line i
};

// The products of the group whose code is the trimmed `code` cut to `levelLength` characters (a code
// not in the group table lists nothing). Each line shows the product's name and daily cost (full price
// or payable per daily dose, as the full-price daily cost setting says); "N.á." when the product has no
// price or dose count. Price order puts the cheapest first and "N.á." last, ties in name order; name
// order is the record order (nevrend.dat is in name order). With `hideDeleted`, products whose TT flag
// is "1" are left out. Empty when atcindin.dat, atcind.dat, gy.ful or nevpos.dat is missing.
[[nodiscard]] SameAtcList sameAtcProducts(const StartupTables& tables, std::string_view code,
                                          std::size_t levelLength, SameAtcOrder order, bool hideDeleted);

}  // namespace rovanel
