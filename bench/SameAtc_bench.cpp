// The same-ATC fill of the largest level-1 group of the demo database: the core listing, and the drug
// list window's whole fill (AzonAtc click, list widget filled) offscreen, beside an I/O floor that makes
// the same reads (directory record, list, and each product's position and block head).
#include <benchmark/benchmark.h>

#include <QComboBox>
#include <QListWidget>
#include <algorithm>
#include <memory>

#include "bench/BenchApplication.h"
#include "bench/DemoGroups.h"
#include "db/SameAtc.h"
#include "views/forms/Rvlist.h"

namespace
{

// The one-letter group with the most products, and its slot in the group table.
std::pair<std::string, std::int64_t> largestLetter()
{
    static const auto found =
        largestGroup([](std::string_view code, std::int32_t) { return code.size() == 1; });
    return found;
}

void SameAtc_IoFloor(benchmark::State& state) { groupIoFloor(state, largestLetter().second, 4096); }
BENCHMARK(SameAtc_IoFloor)->Unit(benchmark::kMillisecond);

void SameAtc_LargestLetter(benchmark::State& state)
{
    const auto [code, slot] = largestLetter();
    std::size_t products = 0;
    for (auto _ : state) {
        const auto list =
            rovanel::sameAtcProducts(demoSharedState().tables, code, 1, rovanel::SameAtcOrder::Price, false);
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
    auto form = std::make_unique<TGylist>(demoSharedState());
    form->show();
    auto* names = form->findChild<QComboBox*>("Gylist");
    auto* levels = form->findChild<QListWidget*>("AzonAtc");
    auto* sameAtc = form->findChild<QListWidget*>("AzonAtcNev");
    const auto& codes = demoSharedState().tables.productCodes;
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
