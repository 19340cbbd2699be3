// rvcli row DIR P: the detailed list's row of product P, one cell per line as
// "index<TAB>caption<TAB>value" (a plain listing, TT packages included). Exit code 1 when the product's
// block cannot be read.
#include <cstdint>
#include <cstdio>

#include "cli/Common.h"
#include "db/DataFile.h"
#include "pricelist/DetailedRow.h"

namespace rovanel::cli
{

int runRow(const Invocation& call)
{
    const auto& args = call.args;
    if (args.size() != 2) return call.usageError();
    const auto record = numberArgument(args[1]);
    if (!record || *record < 0 || *record > INT32_MAX) return call.usageError();
    return withDatabase(args[0], [&](const StartupTables& tables) {
        DataFile gyful(dataFilePath(tables.dataDirectory, "gy.ful"));
        DataFile nevpos(dataFilePath(tables.dataDirectory, "nevpos.dat"));
        const auto lines = rowBlockLines(gyful, nevpos, *record);
        if (!lines || *record >= tables.counts.products()) {
            std::fprintf(stderr, "rvcli: product %lld has no block\n", *record);
            return 1;
        }
        FixedGroupState groups;
        const auto row = GetDailyPrice(*lines, static_cast<std::int32_t>(*record),
                                       tables.productName(*record), ListingMode::Plain, false, groups);
        for (int c = 0; c < kDetailedColumnCount && row; ++c) {
            const auto index = static_cast<std::size_t>(c);
            std::printf("%d\t%s\t%s\n", c, toUtf8(detailedColumns()[index].caption).c_str(),
                        toUtf8(row->cells[index]).c_str());
        }
        return 0;
    });
}

}  // namespace rovanel::cli
