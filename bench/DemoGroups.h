// What the list benchmarks share on the demo database: its startup tables, the group a benchmark lists,
// and the I/O floor of a group's listing.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>

#include "db/DataFile.h"
#include "db/ProductIndex.h"
#include "db/SharedState.h"

inline rovanel::SharedState& demoSharedState()
{
    static rovanel::SharedState* state = [] {
        auto* made = new rovanel::SharedState;
        made->tables = rovanel::loadStartupTables(ROVANEL_DEMO_DB,
                                                  std::filesystem::path(ROVANEL_DEMO_DB) / "no-user.ini");
        return made;
    }();
    return *state;
}

// The ATC group with the most products among those `wanted` accepts (code, product count), and its slot.
inline std::pair<std::string, std::int64_t> largestGroup(
    const std::function<bool(std::string_view, std::int32_t)>& wanted)
{
    const auto& groups = demoSharedState().tables.atcGroupCodes;
    rovanel::DataFile directory(rovanel::dataFilePath(ROVANEL_DEMO_DB, "atcindin.dat"));
    std::pair<std::string, std::int64_t> best{"", -1};
    std::int32_t bestCount = -1;
    for (std::size_t k = 0; k < groups.size(); ++k) {
        const auto key = rovanel::keyRecord(directory, static_cast<std::int64_t>(k));
        if (key && wanted(groups[k], key->count) && key->count > bestCount) {
            bestCount = key->count;
            best = {std::string(groups[k]), static_cast<std::int64_t>(k)};
        }
    }
    return best;
}

// The reads of a group's listing, parsing nothing: the directory record, the list, and `head` bytes of
// each product's block.
inline void groupIoFloor(benchmark::State& state, std::int64_t slot, std::size_t head)
{
    std::size_t products = 0;
    for (auto _ : state) {
        rovanel::DataFile directory(rovanel::dataFilePath(ROVANEL_DEMO_DB, "atcindin.dat"));
        rovanel::DataFile list(rovanel::dataFilePath(ROVANEL_DEMO_DB, "atcind.dat"));
        rovanel::DataFile gyful(rovanel::dataFilePath(ROVANEL_DEMO_DB, "gy.ful"));
        rovanel::DataFile nevpos(rovanel::dataFilePath(ROVANEL_DEMO_DB, "nevpos.dat"));
        const auto key = rovanel::keyRecord(directory, slot);
        const auto records = rovanel::readRecordList(list, key->offset, key->count, false);
        std::size_t bytes = 0;
        for (const std::int32_t record : records)
            if (const auto offset = rovanel::textPosition(nevpos, record))
                bytes += gyful.read(*offset, head).size();
        benchmark::DoNotOptimize(bytes);
        products = records.size();
    }
    state.counters["products"] = static_cast<double>(products);
}
