// The start-up loader on the demo database, beside an I/O floor that reads the same files' bytes.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "db/DataFile.h"
#include "db/StartupTables.h"

namespace
{

const std::filesystem::path& benchDatabase()
{
    static const std::filesystem::path path = ROVANEL_DEMO_DB;
    return path;
}

// Reads the loader's own file list and parses nothing, so the two cannot drift apart.
void StartupLoad_IoFloor(benchmark::State& state)
{
    for (auto _ : state) {
        std::size_t bytes = 0;
        for (const std::string_view name : rovanel::kStartupFileNames)
            bytes += rovanel::readWholeFile(rovanel::dataFilePath(benchDatabase(), name)).value_or("").size();
        benchmark::DoNotOptimize(bytes);
    }
}
BENCHMARK(StartupLoad_IoFloor)->Unit(benchmark::kMillisecond);

void StartupLoad(benchmark::State& state)
{
    for (auto _ : state) {
        rovanel::StartupTables tables =
            rovanel::loadStartupTables(benchDatabase(), benchDatabase() / "no-such-user.ini");
        benchmark::DoNotOptimize(tables);
    }
}
BENCHMARK(StartupLoad)->Unit(benchmark::kMillisecond);

}  // namespace
