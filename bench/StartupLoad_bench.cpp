// The start-up loader on the demo (generated) and the real (imported) database, beside an I/O floor that
// reads the same files' bytes.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "db/DataFile.h"
#include "db/StartupTables.h"

namespace
{

// Reads the loader's own file list and parses nothing, so the two cannot drift apart.
void StartupLoad_IoFloor(benchmark::State& state, const char* database)
{
    const std::filesystem::path benchDatabase = database;
    for (auto _ : state) {
        std::size_t bytes = 0;
        for (const std::string_view name : rovanel::kStartupFileNames)
            bytes += rovanel::readWholeFile(rovanel::dataFilePath(benchDatabase, name)).value_or("").size();
        benchmark::DoNotOptimize(bytes);
    }
}
BENCHMARK_CAPTURE(StartupLoad_IoFloor, demo, ROVANEL_DEMO_DB)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(StartupLoad_IoFloor, real, ROVANEL_REAL_DB)->Unit(benchmark::kMillisecond);

void StartupLoad(benchmark::State& state, const char* database)
{
    const std::filesystem::path benchDatabase = database;
    for (auto _ : state) {
        rovanel::StartupTables tables =
            rovanel::loadStartupTables(benchDatabase, benchDatabase / "no-such-user.ini");
        benchmark::DoNotOptimize(tables);
    }
}
BENCHMARK_CAPTURE(StartupLoad, demo, ROVANEL_DEMO_DB)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(StartupLoad, real, ROVANEL_REAL_DB)->Unit(benchmark::kMillisecond);

}  // namespace
