// From nothing to a shown main window on the demo database (start-up tables, registry defaults present,
// age check, title picture, menu), beside an I/O floor that reads the same files' bytes.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QDir>
#include <filesystem>

#include "app/forms/Rvmain.h"
#include "bench/BenchApplication.h"
#include "db/DataFile.h"
#include "db/StartupTables.h"

namespace
{

const std::filesystem::path& benchDatabase()
{
    static const std::filesystem::path path = ROVANEL_DEMO_DB;
    return path;
}

// The data directory as working directory and a settings folder of the benchmark's own.
void prepare()
{
    static const bool prepared = [] {
        benchApplication();
        const auto settings = std::filesystem::temp_directory_path() / "rovanel-bench-settings";
        std::filesystem::create_directories(settings);
        qputenv("ROVANEL_CONFIG_DIR", QByteArray::fromStdString(settings.string()));
        QDir::setCurrent(QString::fromStdString(benchDatabase().string()));
        return true;
    }();
    (void)prepared;
}

void MainWindowStart_IoFloor(benchmark::State& state)
{
    prepare();
    for (auto _ : state) {
        std::size_t bytes = 0;
        for (const std::string_view name : rovanel::kStartupFileNames)
            bytes += rovanel::readWholeFile(rovanel::dataFilePath(benchDatabase(), name)).value_or("").size();
        for (const std::string_view name : {"zaras.inf", "Rg0.jpg"})
            bytes += rovanel::readWholeFile(rovanel::dataFilePath(benchDatabase(), name)).value_or("").size();
        benchmark::DoNotOptimize(bytes);
    }
}
BENCHMARK(MainWindowStart_IoFloor)->Unit(benchmark::kMillisecond);

void MainWindowStart(benchmark::State& state)
{
    prepare();
    for (auto _ : state) {
        TMain main({});
        main.show();
        QCoreApplication::processEvents();
        benchmark::DoNotOptimize(main.windowTitle());
    }
}
BENCHMARK(MainWindowStart)->Unit(benchmark::kMillisecond);

}  // namespace
