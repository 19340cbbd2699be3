// The detailed list on the demo and (but the sorts) on the real database: filling and sorting a group of
// about 600 packages (the core fill, and the window's whole fill through the code search offscreen), sorting
// those rows by one column of each comparison class, and building the rows of all products; each beside an
// I/O floor that makes the same reads and parses nothing.
#include <benchmark/benchmark.h>

#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "app/RegistrySettings.h"
#include "app/forms/ShowMessage.h"
#include "bench/BenchApplication.h"
#include "bench/DemoGroups.h"
#include "db/AtcCode.h"
#include "db/DataFile.h"
#include "pricelist/DetailedList.h"
#include "pricelist/RefSort.h"
#include "pricelist/forms/Rvref.h"

namespace
{

// The medicine group with the most packages that the list shows without its too-many-rows message (at
// most 600), and its slot.
std::pair<std::string, std::int64_t> groupOf600(const char* database)
{
    static std::map<std::string, std::pair<std::string, std::int64_t>> found;
    if (const auto known = found.find(database); known != found.end()) return known->second;
    return found[database] = largestGroup(
               [](std::string_view code, std::int32_t count) {
                   return !code.empty() && code[0] != 'T' && code[0] != 'X' &&
                          count < rovanel::kDetailedListLimit;
               },
               database);
}

void DetailedList_IoFloor(benchmark::State& state, const char* database)
{
    groupIoFloor(state, groupOf600(database).second, 2048, database);
}
BENCHMARK_CAPTURE(DetailedList_IoFloor, demo, ROVANEL_DEMO_DB)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DetailedList_IoFloor, real, ROVANEL_REAL_DB)->Unit(benchmark::kMillisecond);

void DetailedList_Fill600(benchmark::State& state, const char* database)
{
    const auto [code, slot] = groupOf600(database);
    std::size_t rows = 0;
    for (auto _ : state) {
        rovanel::DetailedList list(demoSharedState(database).tables);
        (void)list.bFillSameAtc(code, rovanel::ListingMode::Plain);
        rows = list.rows().size();
        benchmark::DoNotOptimize(rows);
    }
    state.counters["rows"] = static_cast<double>(rows);
}
BENCHMARK_CAPTURE(DetailedList_Fill600, demo, ROVANEL_DEMO_DB)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DetailedList_Fill600, real, ROVANEL_REAL_DB)->Unit(benchmark::kMillisecond);

// The window's whole fill: the code typed, "Keres" pressed, the rows in the table model and sorted.
void DetailedList_WindowFill600(benchmark::State& state, const char* database)
{
    benchApplication();
    (void)setMessageShower([](QWidget*, const rovanel::Message&) {});  // never a modal box in a benchmark
    const auto [code, slot] = groupOf600(database);
    auto registry =
        rovanel::openRegistryFile(std::filesystem::temp_directory_path() / "rovanel-bench-registry.ini");
    auto form = std::make_unique<TRefForm>(demoSharedState(database), *registry);
    form->show();
    form->findChild<QLineEdit*>("AtcKodEdt")->setText(QString::fromStdString(code));
    auto* find = form->findChild<QPushButton*>("AtcKodKeres");
    for (auto _ : state) {
        find->click();
        benchmark::DoNotOptimize(form->findChild<QTableView*>("RefLst")->model()->rowCount());
    }
    state.counters["rows"] = form->findChild<QTableView*>("RefLst")->model()->rowCount();
}
BENCHMARK_CAPTURE(DetailedList_WindowFill600, demo, ROVANEL_DEMO_DB)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DetailedList_WindowFill600, real, ROVANEL_REAL_DB)->Unit(benchmark::kMillisecond);

// Sorting the rows of the group by one column of each class: 0 caption, 17 text, 4 decimal, 5 category,
// 1 integer.
void DetailedList_Sort600(benchmark::State& state, const char* database)
{
    const auto [code, slot] = groupOf600(database);
    rovanel::DetailedList list(demoSharedState(database).tables);
    (void)list.bFillSameAtc(code, rovanel::ListingMode::Plain);
    const int column = static_cast<int>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        std::vector<rovanel::DetailedRow> rows = list.rows();
        state.ResumeTiming();
        benchmark::DoNotOptimize(rovanel::sortRows(rows, column));
    }
    state.counters["rows"] = static_cast<double>(list.rows().size());
}
BENCHMARK_CAPTURE(DetailedList_Sort600, demo, ROVANEL_DEMO_DB)
    ->Arg(0)
    ->Arg(17)
    ->Arg(4)
    ->Arg(5)
    ->Arg(1)
    ->Unit(benchmark::kMicrosecond);

void DetailedList_AllRows_IoFloor(benchmark::State& state, const char* database)
{
    const std::int32_t products = demoSharedState(database).tables.counts.products();
    std::size_t bytes = 0;
    for (auto _ : state) {
        rovanel::DataFile gyful(rovanel::dataFilePath(database, "gy.ful"));
        rovanel::DataFile nevpos(rovanel::dataFilePath(database, "nevpos.dat"));
        bytes = 0;
        for (std::int32_t record = 0; record < products; ++record)
            if (const auto offset = rovanel::textPosition(nevpos, record))
                bytes += gyful.read(*offset, 2048).size();
        benchmark::DoNotOptimize(bytes);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
}
BENCHMARK_CAPTURE(DetailedList_AllRows_IoFloor, demo, ROVANEL_DEMO_DB)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DetailedList_AllRows_IoFloor, real, ROVANEL_REAL_DB)->Unit(benchmark::kMillisecond);

void DetailedList_AllRows(benchmark::State& state, const char* database)
{
    const std::int32_t products = demoSharedState(database).tables.counts.products();
    std::size_t rows = 0;
    for (auto _ : state) {
        rovanel::DataFile gyful(rovanel::dataFilePath(database, "gy.ful"));
        rovanel::DataFile nevpos(rovanel::dataFilePath(database, "nevpos.dat"));
        rovanel::FixedGroupState groups;
        rows = 0;
        for (std::int32_t record = 0; record < products; ++record)
            if (const auto lines = rovanel::rowBlockLines(gyful, nevpos, record))
                rows += rovanel::GetDailyPrice(*lines, record,
                                               demoSharedState(database).tables.productName(record),
                                               rovanel::ListingMode::Plain, false, groups)
                            .has_value();
        benchmark::DoNotOptimize(rows);
    }
    state.counters["rows"] = static_cast<double>(rows);
}
BENCHMARK_CAPTURE(DetailedList_AllRows, demo, ROVANEL_DEMO_DB)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DetailedList_AllRows, real, ROVANEL_REAL_DB)->Unit(benchmark::kMillisecond);

}  // namespace
