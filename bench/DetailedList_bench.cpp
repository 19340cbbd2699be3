// The detailed list on the demo database: filling and sorting a group of about 600 packages (the core
// fill, and the window's whole fill through the code search offscreen), sorting those rows by one column
// of each comparison class, and building the rows of all products; each beside an I/O floor that makes
// the same reads and parses nothing.
#include <benchmark/benchmark.h>

#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <filesystem>
#include <memory>

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
std::pair<std::string, std::int64_t> groupOf600()
{
    static const auto found = largestGroup([](std::string_view code, std::int32_t count) {
        return !code.empty() && code[0] != 'T' && code[0] != 'X' && count < rovanel::kDetailedListLimit;
    });
    return found;
}

void DetailedList_IoFloor(benchmark::State& state) { groupIoFloor(state, groupOf600().second, 2048); }
BENCHMARK(DetailedList_IoFloor)->Unit(benchmark::kMillisecond);

void DetailedList_Fill600(benchmark::State& state)
{
    const auto [code, slot] = groupOf600();
    std::size_t rows = 0;
    for (auto _ : state) {
        rovanel::DetailedList list(demoSharedState().tables);
        (void)list.bFillSameAtc(code, rovanel::ListingMode::Plain);
        rows = list.rows().size();
        benchmark::DoNotOptimize(rows);
    }
    state.counters["rows"] = static_cast<double>(rows);
}
BENCHMARK(DetailedList_Fill600)->Unit(benchmark::kMillisecond);

// The window's whole fill: the code typed, "Keres" pressed, the rows in the table model and sorted.
void DetailedList_WindowFill600(benchmark::State& state)
{
    benchApplication();
    (void)setMessageShower([](QWidget*, const rovanel::Message&) {});  // never a modal box in a benchmark
    const auto [code, slot] = groupOf600();
    auto registry =
        rovanel::openRegistryFile(std::filesystem::temp_directory_path() / "rovanel-bench-registry.ini");
    auto form = std::make_unique<TRefForm>(demoSharedState(), *registry);
    form->show();
    form->findChild<QLineEdit*>("AtcKodEdt")->setText(QString::fromStdString(code));
    auto* find = form->findChild<QPushButton*>("AtcKodKeres");
    for (auto _ : state) {
        find->click();
        benchmark::DoNotOptimize(form->findChild<QTableView*>("RefLst")->model()->rowCount());
    }
    state.counters["rows"] = form->findChild<QTableView*>("RefLst")->model()->rowCount();
}
BENCHMARK(DetailedList_WindowFill600)->Unit(benchmark::kMillisecond);

// Sorting the rows of the group by one column of each class: 0 caption, 17 text, 4 decimal, 5 category,
// 1 integer.
void DetailedList_Sort600(benchmark::State& state)
{
    const auto [code, slot] = groupOf600();
    rovanel::DetailedList list(demoSharedState().tables);
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
BENCHMARK(DetailedList_Sort600)->Arg(0)->Arg(17)->Arg(4)->Arg(5)->Arg(1)->Unit(benchmark::kMicrosecond);

void DetailedList_AllRows_IoFloor(benchmark::State& state)
{
    const std::int32_t products = demoSharedState().tables.counts.products();
    std::size_t bytes = 0;
    for (auto _ : state) {
        rovanel::DataFile gyful(rovanel::dataFilePath(ROVANEL_DEMO_DB, "gy.ful"));
        rovanel::DataFile nevpos(rovanel::dataFilePath(ROVANEL_DEMO_DB, "nevpos.dat"));
        bytes = 0;
        for (std::int32_t record = 0; record < products; ++record)
            if (const auto offset = rovanel::textPosition(nevpos, record))
                bytes += gyful.read(*offset, 2048).size();
        benchmark::DoNotOptimize(bytes);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
}
BENCHMARK(DetailedList_AllRows_IoFloor)->Unit(benchmark::kMillisecond);

void DetailedList_AllRows(benchmark::State& state)
{
    const std::int32_t products = demoSharedState().tables.counts.products();
    std::size_t rows = 0;
    for (auto _ : state) {
        rovanel::DataFile gyful(rovanel::dataFilePath(ROVANEL_DEMO_DB, "gy.ful"));
        rovanel::DataFile nevpos(rovanel::dataFilePath(ROVANEL_DEMO_DB, "nevpos.dat"));
        rovanel::FixedGroupState groups;
        rows = 0;
        for (std::int32_t record = 0; record < products; ++record)
            if (const auto lines = rovanel::rowBlockLines(gyful, nevpos, record))
                rows += rovanel::GetDailyPrice(*lines, record, demoSharedState().tables.productName(record),
                                               rovanel::ListingMode::Plain, false, groups)
                            .has_value();
        benchmark::DoNotOptimize(rows);
    }
    state.counters["rows"] = static_cast<double>(rows);
}
BENCHMARK(DetailedList_AllRows)->Unit(benchmark::kMillisecond);

}  // namespace
