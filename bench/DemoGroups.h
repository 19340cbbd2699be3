// What the benchmarks share on the demo and real databases: their startup tables, the group a benchmark
// lists, the I/O floor of a group's listing, and the bytes of whole files read and parsed not at all.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "db/DataFile.h"
#include "db/ProductIndex.h"
#include "db/SharedState.h"

// The startup tables of a database (the demo one unless named), loaded once.
inline rovanel::SharedState& demoSharedState(const char* database = ROVANEL_DEMO_DB)
{
    static std::map<std::string, rovanel::SharedState*> states;
    rovanel::SharedState*& state = states[database];
    if (!state) {
        state = new rovanel::SharedState;
        state->tables = rovanel::loadStartupTables(database, std::filesystem::path(database) / "no-user.ini");
    }
    return *state;
}

// The bytes of the named files of a database, read whole.
template <class Names>
std::size_t fileBytes(const std::filesystem::path& database, const Names& names)
{
    std::size_t bytes = 0;
    for (const std::string_view name : names)
        bytes += rovanel::readWholeFile(rovanel::dataFilePath(database, name)).value_or("").size();
    return bytes;
}
inline std::size_t fileBytes(const std::filesystem::path& database,
                             std::initializer_list<std::string_view> names)
{
    return fileBytes<std::initializer_list<std::string_view>>(database, names);
}

// The ATC group with the most products among those `wanted` accepts (code, product count), and its slot.
inline std::pair<std::string, std::int64_t> largestGroup(
    const std::function<bool(std::string_view, std::int32_t)>& wanted, const char* database = ROVANEL_DEMO_DB)
{
    const auto& groups = demoSharedState(database).tables.atcGroupCodes;
    rovanel::DataFile directory(rovanel::dataFilePath(database, "atcindin.dat"));
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
inline void groupIoFloor(benchmark::State& state, std::int64_t slot, std::size_t head,
                         const char* database = ROVANEL_DEMO_DB)
{
    std::size_t products = 0;
    for (auto _ : state) {
        rovanel::DataFile directory(rovanel::dataFilePath(database, "atcindin.dat"));
        rovanel::DataFile list(rovanel::dataFilePath(database, "atcind.dat"));
        rovanel::DataFile gyful(rovanel::dataFilePath(database, "gy.ful"));
        rovanel::DataFile nevpos(rovanel::dataFilePath(database, "nevpos.dat"));
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
