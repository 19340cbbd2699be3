// From nothing to a shown main window on the demo and on the real database (start-up tables, registry
// defaults present, age check, title picture, menu), beside an I/O floor that reads the same files' bytes.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QDir>
#include <filesystem>

#include "app/forms/Rvmain.h"
#include "bench/BenchApplication.h"
#include "bench/DemoGroups.h"
#include "db/StartupTables.h"

namespace
{

// The data directory as working directory and a settings folder of the benchmark's own.
void prepare(const std::filesystem::path& database)
{
    static const bool prepared = [] {
        benchApplication();
        const auto settings = std::filesystem::temp_directory_path() / "rovanel-bench-settings";
        std::filesystem::create_directories(settings);
        qputenv("ROVANEL_CONFIG_DIR", QByteArray::fromStdString(settings.string()));
        return true;
    }();
    (void)prepared;
    QDir::setCurrent(QString::fromStdString(database.string()));
}

void MainWindowStart_IoFloor(benchmark::State& state, const char* database)
{
    prepare(database);
    for (auto _ : state)
        benchmark::DoNotOptimize(fileBytes(database, rovanel::kStartupFileNames) +
                                 fileBytes(database, {"zaras.inf", "Rg0.jpg"}));
}
BENCHMARK_CAPTURE(MainWindowStart_IoFloor, demo, ROVANEL_DEMO_DB)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(MainWindowStart_IoFloor, real, ROVANEL_REAL_DB)->Unit(benchmark::kMillisecond);

void MainWindowStart(benchmark::State& state, const char* database)
{
    prepare(database);
    for (auto _ : state) {
        TMain main({});
        main.show();
        QCoreApplication::processEvents();
        benchmark::DoNotOptimize(main.windowTitle());
    }
}
BENCHMARK_CAPTURE(MainWindowStart, demo, ROVANEL_DEMO_DB)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(MainWindowStart, real, ROVANEL_REAL_DB)->Unit(benchmark::kMillisecond);

}  // namespace
