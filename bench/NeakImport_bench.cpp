// The import of the vendored NEAK month (rvcli import-neak) beside an I/O floor that reads the same
// source tables and writes the same number of output bytes, parsing nothing.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "db/DataFile.h"
#include "gen/NeakImport.h"

namespace
{

const std::filesystem::path kSource = std::filesystem::path(ROVANEL_SOURCE_DIR) / "data/vendor/neak";
const std::filesystem::path kOutput = std::filesystem::temp_directory_path() / "rovanel-bench-real-db";

void NeakImport_IoFloor(benchmark::State& state)
{
    std::uintmax_t outputBytes = 0;
    for (const auto& entry : std::filesystem::directory_iterator(ROVANEL_REAL_DB))
        outputBytes += entry.file_size();
    const std::string written(static_cast<std::size_t>(outputBytes), 'x');
    std::filesystem::create_directories(kOutput);
    for (auto _ : state) {
        std::size_t bytes = 0;
        for (const std::string_view name :
             {std::string_view("neak_forgalmi_adatok/gyogyszer_orszagos_forgalom_202501.csv"),
              rovanel::kAtcBookFile, rovanel::kEuPointsFile, rovanel::kEuTextsFile, rovanel::kBnoCodesFile,
              rovanel::kBnoLinksFile, rovanel::kRightsFile, rovanel::kSpecialtiesFile, rovanel::kAidsFile})
            bytes += rovanel::readWholeFile(kSource / std::string(name)).value_or("").size();
        std::ofstream(kOutput / "floor", std::ios::binary) << written;
        benchmark::DoNotOptimize(bytes);
    }
    std::filesystem::remove_all(kOutput);
}
BENCHMARK(NeakImport_IoFloor)->Unit(benchmark::kMillisecond);

void NeakImport(benchmark::State& state)
{
    for (auto _ : state) {
        std::string error;
        auto report = rovanel::importNeak(kSource, kOutput, {}, &error);
        if (!report) state.SkipWithError(error.c_str());
        benchmark::DoNotOptimize(report);
    }
    std::filesystem::remove_all(kOutput);
}
BENCHMARK(NeakImport)->Unit(benchmark::kMillisecond);

}  // namespace
