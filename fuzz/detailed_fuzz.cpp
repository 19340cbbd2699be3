// The detailed list on a data directory made from the input: a fill in any listing mode, the sort by
// every column, a fixed-group listing and one product's row.
#include <algorithm>
#include <cstdint>

#include "db/DataFile.h"
#include "db/StartupTables.h"
#include "fuzz/FuzzSupport.h"
#include "pricelist/DetailedList.h"
#include "pricelist/RefSort.h"

using namespace rovanel;
using namespace rovanel::fuzzing;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Parameters parameters = populateFromInput(data, size, "detailed_fuzz");
    const FuzzDirectory& directory = fuzzDirectory();
    const StartupTables tables = loadFuzzTables();
    const std::int32_t products = tables.counts.products();

    DetailedList list(tables);
    list.setHideDeleted(parameters.at(2) != 0);
    const std::int64_t node = parameters.at(0);
    const std::string code = node >= 0 && static_cast<std::size_t>(node) < tables.atcGroupCodes.size()
                                 ? std::string(tables.atcGroupCodes[static_cast<std::size_t>(node)])
                                 : std::string("Q99");
    const auto mode = static_cast<ListingMode>(std::clamp<std::int64_t>(parameters.at(1), 1, 4));
    const FillOutcome outcome = list.bFillSameAtc(code, mode);
    ROVANEL_FUZZ_CHECK(list.rows().size() <= static_cast<std::size_t>(kDetailedListLimit));
    for (const DetailedRow& row : list.rows()) ROVANEL_FUZZ_CHECK(row.record >= 0 && row.record < products);
    for (int column : outcome.hiddenColumns) ROVANEL_FUZZ_CHECK(column > 0 && column < kDetailedColumnCount);
    for (int column = 0; column < kDetailedColumnCount; ++column) {
        const std::size_t before = list.rows().size();
        (void)list.RefLstColumnClick(column);
        ROVANEL_FUZZ_CHECK(list.rows().size() == before);
    }
    const auto selected = static_cast<int>(std::clamp<std::int64_t>(parameters.at(3), -1, INT32_MAX));
    (void)list.fixedGroupClick(SupportKind::Increased, selected);
    ROVANEL_FUZZ_CHECK(list.currentCode() == code.substr(0, 8));

    DataFile gyful(directory.path() / "gy.ful");
    DataFile nevpos(directory.path() / "nevpos.dat");
    if (const auto lines = rowBlockLines(gyful, nevpos, parameters.at(4))) {
        ROVANEL_FUZZ_CHECK(!lines->empty() && lines->front().size() <= 19);
        FixedGroupState groups;
        (void)GetDailyPrice(*lines, 0, "", ListingMode::Plain, false, groups);
    }
    return 0;
}
