// Building the longest description of the demo database, beside an I/O floor that opens the same six
// files and reads the same block.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "db/DataFile.h"
#include "db/DescriptionBuilder.h"
#include "db/ProductIndex.h"
#include "db/StartupTables.h"
#include "db/StyledDocument.h"

namespace
{

const rovanel::StartupTables& tables()
{
    static const rovanel::StartupTables loaded =
        rovanel::loadStartupTables(ROVANEL_DEMO_DB, std::filesystem::path(ROVANEL_DEMO_DB) / "no-user.ini");
    return loaded;
}

// The record whose block is the longest (by the distance to the next block's offset).
std::int32_t longestRecord()
{
    static const std::int32_t record = [] {
        rovanel::DataFile nevpos(rovanel::dataFilePath(ROVANEL_DEMO_DB, "nevpos.dat"));
        rovanel::DataFile gyful(rovanel::dataFilePath(ROVANEL_DEMO_DB, "gy.ful"));
        std::int32_t best = 0;
        std::uint64_t bestLength = 0;
        const std::int32_t products = tables().counts.products();
        for (std::int32_t p = 0; p < products; ++p) {
            const auto start = rovanel::textPosition(nevpos, p);
            const auto end = p + 1 < products ? rovanel::textPosition(nevpos, p + 1) : gyful.size();
            if (start && end && *end > *start && *end - *start > bestLength) {
                bestLength = *end - *start;
                best = p;
            }
        }
        return best;
    }();
    return record;
}

void Description_IoFloor(benchmark::State& state)
{
    const std::int32_t record = longestRecord();
    for (auto _ : state) {
        rovanel::DataFile gyful(rovanel::dataFilePath(ROVANEL_DEMO_DB, "GY.FUL"));
        rovanel::DataFile nevpos(rovanel::dataFilePath(ROVANEL_DEMO_DB, "nevpos.dat"));
        rovanel::DataFile atc(rovanel::dataFilePath(ROVANEL_DEMO_DB, "atcnrend.dat"));
        rovanel::DataFile contraindications(rovanel::dataFilePath(ROVANEL_DEMO_DB, "ellnrend.dat"));
        rovanel::DataFile sideEffects(rovanel::dataFilePath(ROVANEL_DEMO_DB, "mhnrend.dat"));
        rovanel::DataFile names(rovanel::dataFilePath(ROVANEL_DEMO_DB, "nevrend.dat"));
        auto block = rovanel::productBlock(gyful, nevpos, record);
        benchmark::DoNotOptimize(block);
    }
}
BENCHMARK(Description_IoFloor)->Unit(benchmark::kMicrosecond);

void Description_Longest(benchmark::State& state)
{
    const std::int32_t record = longestRecord();
    std::size_t bytes = 0;
    for (auto _ : state) {
        const rovanel::Description description = rovanel::buildDescription(tables(), record);
        benchmark::DoNotOptimize(description.built);
        bytes = description.document.plainText().size();
    }
    state.counters["record"] = record;
    state.counters["text_bytes"] = static_cast<double>(bytes);
}
BENCHMARK(Description_Longest)->Unit(benchmark::kMicrosecond);

}  // namespace
