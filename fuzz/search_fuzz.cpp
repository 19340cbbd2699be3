// The side-effect and active-ingredient searches on a data directory made from the input.
#include <algorithm>
#include <cstdint>

#include "db/DrugSelection.h"
#include "db/FoundDrugs.h"
#include "db/Searches.h"
#include "db/StartupTables.h"
#include "fuzz/FuzzSupport.h"

using namespace rovanel;
using namespace rovanel::fuzzing;

namespace
{

// Every entry names a product of the name list.
void checkTable(const StartupTables& tables, const FoundDrugTable& found)
{
    for (const FoundDrug& entry : found.entries())
        ROVANEL_FUZZ_CHECK(entry.record >= 0 &&
                           static_cast<std::size_t>(entry.record) < tables.productNames.size());
    ROVANEL_FUZZ_CHECK(foundDrugNames(tables, found).size() == found.entries().size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Parameters parameters = populateFromInput(data, size, "search_fuzz");
    const StartupTables tables = loadFuzzTables();

    DrugSelection selection;
    selection.SzedettGy.fill(-1);
    selection.SzedettGyCount =
        static_cast<std::int32_t>(std::clamp<std::int64_t>(parameters.at(2), INT32_MIN, INT32_MAX));
    for (std::size_t i = 0; i < selection.SzedettGy.size(); ++i)
        selection.SzedettGy[i] = static_cast<std::int32_t>(
            std::clamp<std::int64_t>(parameters.at(3 + i, -1), INT32_MIN, INT32_MAX));

    FoundDrugTable found;
    found.append(FoundDrug{0, 0});
    const FoundDrugTable before = found;
    const SearchOutcome all = FillMhIdxList(tables, found, parameters.at(0));
    if (all.tableWritten) {
        checkTable(tables, found);
        ROVANEL_FUZZ_CHECK(found.entries().size() <= static_cast<std::size_t>(kSearchLimit));
    } else {
        // Too many, none, or the files missing: the list shows the previous result again.
        ROVANEL_FUZZ_CHECK(found.entries() == before.entries());
    }

    FoundDrugTable among;
    (void)FillMhSpecIdxList2(tables, selection, among, parameters.at(0));
    checkTable(tables, among);
    for (const FoundDrug& entry : among.entries())
        ROVANEL_FUZZ_CHECK(std::find(selection.SzedettGy.begin(), selection.SzedettGy.end(), entry.record) !=
                           selection.SzedettGy.end());

    FoundDrugTable ingredient;
    (void)HaKeres(tables, ingredient, parameters.at(1));
    checkTable(tables, ingredient);
    ROVANEL_FUZZ_CHECK(ingredient.entries().size() <= static_cast<std::size_t>(kSearchLimit));
    return 0;
}
