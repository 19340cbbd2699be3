// Building the longest description of the demo and of the real database, beside an I/O floor that opens the
// same six files and reads the same block.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <map>
#include <string>

#include "bench/DemoGroups.h"
#include "db/DataFile.h"
#include "db/DescriptionBuilder.h"
#include "db/ProductIndex.h"
#include "db/StartupTables.h"
#include "db/StyledDocument.h"

namespace
{

const rovanel::StartupTables& tables(const char* database) { return demoSharedState(database).tables; }

// The record whose block is the longest (by the distance to the next block's offset).
std::int32_t longestRecord(const char* database)
{
    static std::map<std::string, std::int32_t> records;
    if (const auto found = records.find(database); found != records.end()) return found->second;
    return records[database] = [&] {
        rovanel::DataFile nevpos(rovanel::dataFilePath(database, "nevpos.dat"));
        rovanel::DataFile gyful(rovanel::dataFilePath(database, "gy.ful"));
        std::int32_t best = 0;
        std::uint64_t bestLength = 0;
        const std::int32_t products = tables(database).counts.products();
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
}

void Description_IoFloor(benchmark::State& state, const char* database)
{
    const std::int32_t record = longestRecord(database);
    for (auto _ : state) {
        rovanel::DataFile gyful(rovanel::dataFilePath(database, "GY.FUL"));
        rovanel::DataFile nevpos(rovanel::dataFilePath(database, "nevpos.dat"));
        rovanel::DataFile atc(rovanel::dataFilePath(database, "atcnrend.dat"));
        rovanel::DataFile contraindications(rovanel::dataFilePath(database, "ellnrend.dat"));
        rovanel::DataFile sideEffects(rovanel::dataFilePath(database, "mhnrend.dat"));
        rovanel::DataFile names(rovanel::dataFilePath(database, "nevrend.dat"));
        auto block = rovanel::productBlock(gyful, nevpos, record);
        benchmark::DoNotOptimize(block);
    }
}
BENCHMARK_CAPTURE(Description_IoFloor, demo, ROVANEL_DEMO_DB)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Description_IoFloor, real, ROVANEL_REAL_DB)->Unit(benchmark::kMicrosecond);

void Description_Longest(benchmark::State& state, const char* database)
{
    const std::int32_t record = longestRecord(database);
    std::size_t bytes = 0;
    for (auto _ : state) {
        const rovanel::Description description = rovanel::buildDescription(tables(database), record);
        benchmark::DoNotOptimize(description.built);
        bytes = description.document.plainText().size();
    }
    state.counters["record"] = record;
    state.counters["text_bytes"] = static_cast<double>(bytes);
}
BENCHMARK_CAPTURE(Description_Longest, demo, ROVANEL_DEMO_DB)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Description_Longest, real, ROVANEL_REAL_DB)->Unit(benchmark::kMicrosecond);

}  // namespace
