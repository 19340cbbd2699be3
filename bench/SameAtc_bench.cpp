// The same-ATC fill of the largest level-1 group of the demo database: the core listing, and the drug
// list window's whole fill (AzonAtc click, list widget filled) offscreen, beside an I/O floor that makes
// the same reads (directory record, list, and each product's position and block head).
#include <benchmark/benchmark.h>

#include <QComboBox>
#include <QListWidget>
#include <algorithm>
#include <filesystem>
#include <memory>

#include "bench/BenchApplication.h"
#include "db/DataFile.h"
#include "db/ProductIndex.h"
#include "db/SameAtc.h"
#include "db/SharedState.h"
#include "views/forms/Rvlist.h"

namespace
{

rovanel::SharedState& sharedState()
{
    static rovanel::SharedState* state = [] {
        auto* made = new rovanel::SharedState;
        made->tables = rovanel::loadStartupTables(ROVANEL_DEMO_DB,
                                                  std::filesystem::path(ROVANEL_DEMO_DB) / "no-user.ini");
        return made;
    }();
    return *state;
}

// The one-letter group with the most products, and its slot in the group table.
std::pair<std::string, std::int64_t> largestLetter()
{
    static const auto found = [] {
        const auto& groups = sharedState().tables.atcGroupCodes;
        rovanel::DataFile directory(rovanel::dataFilePath(ROVANEL_DEMO_DB, "atcindin.dat"));
        std::pair<std::string, std::int64_t> best{"", -1};
        std::int32_t bestCount = -1;
        for (std::size_t k = 0; k < groups.size(); ++k) {
            if (groups[k].size() != 1) continue;
            const auto key = rovanel::keyRecord(directory, static_cast<std::int64_t>(k));
            if (key && key->count > bestCount) {
                bestCount = key->count;
                best = {std::string(groups[k]), static_cast<std::int64_t>(k)};
            }
        }
        return best;
    }();
    return found;
}

void SameAtc_IoFloor(benchmark::State& state)
{
    const auto [code, slot] = largestLetter();
    std::size_t products = 0;
    for (auto _ : state) {
        rovanel::DataFile directory(rovanel::dataFilePath(ROVANEL_DEMO_DB, "atcindin.dat"));
        rovanel::DataFile list(rovanel::dataFilePath(ROVANEL_DEMO_DB, "atcind.dat"));
        rovanel::DataFile gyful(rovanel::dataFilePath(ROVANEL_DEMO_DB, "gy.ful"));
        rovanel::DataFile nevpos(rovanel::dataFilePath(ROVANEL_DEMO_DB, "nevpos.dat"));
        const auto key = rovanel::keyRecord(directory, slot);
        const auto records = rovanel::readRecordList(list, key->offset, key->count, false);
        std::size_t bytes = 0;
        for (const std::int32_t record : records)
            if (const auto offset = rovanel::textPosition(nevpos, record))
                bytes += gyful.read(*offset, 4096).size();
        benchmark::DoNotOptimize(bytes);
        products = records.size();
    }
    state.counters["products"] = static_cast<double>(products);
}
BENCHMARK(SameAtc_IoFloor)->Unit(benchmark::kMillisecond);

void SameAtc_LargestLetter(benchmark::State& state)
{
    const auto [code, slot] = largestLetter();
    std::size_t products = 0;
    for (auto _ : state) {
        const auto list =
            rovanel::sameAtcProducts(sharedState().tables, code, 1, rovanel::SameAtcOrder::Price, false);
        products = list.lines.size();
        benchmark::DoNotOptimize(list);
    }
    state.counters["products"] = static_cast<double>(products);
}
BENCHMARK(SameAtc_LargestLetter)->Unit(benchmark::kMillisecond);

// The window's fill: choosing the first level line of a product of the largest letter.
void SameAtc_WindowFill(benchmark::State& state)
{
    benchApplication();
    const auto [code, slot] = largestLetter();
    auto form = std::make_unique<TGylist>(sharedState());
    form->show();
    auto* names = form->findChild<QComboBox*>("Gylist");
    auto* levels = form->findChild<QListWidget*>("AzonAtc");
    auto* sameAtc = form->findChild<QListWidget*>("AzonAtcNev");
    const auto& codes = sharedState().tables.productCodes;
    const auto first = std::find_if(codes.begin(), codes.end(),
                                    [&](std::string_view c) { return c.substr(0, code.size()) == code; });
    const int index = static_cast<int>(first - codes.begin());
    names->setCurrentIndex(index);
    emit names->activated(index);
    for (auto _ : state) {
        levels->setCurrentRow(-1);
        levels->setCurrentRow(0);
        benchmark::DoNotOptimize(sameAtc->count());
    }
    state.counters["products"] = sameAtc->count();
}
BENCHMARK(SameAtc_WindowFill)->Unit(benchmark::kMillisecond);

}  // namespace
