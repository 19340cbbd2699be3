// The start-up loader on the demo (generated) and the real (imported) database, beside an I/O floor that
// reads the same files' bytes.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "bench/DemoGroups.h"
#include "db/StartupTables.h"

namespace
{

// Reads the loader's own file list and parses nothing, so the two cannot drift apart.
void StartupLoad_IoFloor(benchmark::State& state, const char* database)
{
    for (auto _ : state) benchmark::DoNotOptimize(fileBytes(database, rovanel::kStartupFileNames));
}
BENCHMARK_CAPTURE(StartupLoad_IoFloor, demo, ROVANEL_DEMO_DB)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(StartupLoad_IoFloor, real, ROVANEL_REAL_DB)->Unit(benchmark::kMillisecond);

void StartupLoad(benchmark::State& state, const char* database)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(
            rovanel::loadStartupTables(database, std::filesystem::path(database) / "no-such-user.ini"));
}
BENCHMARK_CAPTURE(StartupLoad, demo, ROVANEL_DEMO_DB)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(StartupLoad, real, ROVANEL_REAL_DB)->Unit(benchmark::kMillisecond);

}  // namespace
