// The side-effect and active-ingredient searches: each writes the found-drug table (the rows of its
// result list) and may ask its window to show a message.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "db/Message.h"

namespace rovanel
{

struct StartupTables;
struct DrugSelection;
class FoundDrugTable;

struct SearchOutcome {
    bool tableWritten = false;       // false: the table keeps the previous search's result
    std::optional<Message> message;  // shown owned by the window (the ingredient limit: without owner)
};

// Side effect `sideEffect` among all drugs (mhindin.dat / mhind.dat). More than 600 drugs: message 144
// (title 145) and the table is left as it was, so the list shows the previous result again; no drugs:
// message 146 (title 147), table left as it was. A missing file or record leaves the table empty.
[[nodiscard]] SearchOutcome FillMhIdxList(const StartupTables& tables, FoundDrugTable& found,
                                          std::int64_t sideEffect);

// The same, keeping only the drugs among slots 0..SzedettGyCount of SzedettGy, in file order, without a
// limit. None kept: message 149 (title 147).
[[nodiscard]] SearchOutcome FillMhSpecIdxList2(const StartupTables& tables, const DrugSelection& selection,
                                               FoundDrugTable& found, std::int64_t sideEffect);

// The drugs containing active ingredient `ingredient` (haindinf.dat / haind.dat): at most 600; the 601st
// stops the reading with "Túl sok gyógyszer tartozik ide, csak a lista eleje látszik!" (no title). A
// negative ingredient (nothing chosen) empties the table.
[[nodiscard]] SearchOutcome HaKeres(const StartupTables& tables, FoundDrugTable& found,
                                    std::int64_t ingredient);

// The names of the table's products in table order, up to the first negative record number.
[[nodiscard]] std::vector<std::string> foundDrugNames(const StartupTables& tables,
                                                      const FoundDrugTable& found);

inline constexpr std::int32_t kSearchLimit = 600;

}  // namespace rovanel
