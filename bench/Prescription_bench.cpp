// The prescription's data operations on the demo database, each beside its floor: loading bno.tre (23,658
// nodes) into the core and into the BNO browser's tree widget beside reading the file; a BNO check that
// scans the whole bnohr.dat (12,000 lines; the key is on no line) beside reading the file; a list-mode tree
// search ignoring case over every node beside a plain exact substring pass over the same texts.
#include <benchmark/benchmark.h>

#include <QTreeWidget>
#include <filesystem>

#include "bench/BenchApplication.h"
#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "rx/BnoRules.h"
#include "rx/BnoTree.h"
#include "rx/forms/BnoTreeView.h"

namespace
{

const std::filesystem::path kDemo = ROVANEL_DEMO_DB;

const std::vector<rovanel::TreeNode>& nodes()
{
    static const auto loaded = rovanel::loadBnoTree(kDemo).value_or(std::vector<rovanel::TreeNode>{});
    return loaded;
}

}  // namespace

static void BnoTreeLoad_IoFloor(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(rovanel::readWholeFile(rovanel::dataFilePath(kDemo, "bno.tre")));
}
BENCHMARK(BnoTreeLoad_IoFloor)->Unit(benchmark::kMillisecond);

static void BnoTreeLoad(benchmark::State& state)
{
    for (auto _ : state) benchmark::DoNotOptimize(rovanel::loadBnoTree(kDemo));
}
BENCHMARK(BnoTreeLoad)->Unit(benchmark::kMillisecond);

// What the browser's first showing does: read, parse and fill the tree widget.
static void BnoTreeWidgetLoad(benchmark::State& state)
{
    benchApplication();
    QTreeWidget tree;
    for (auto _ : state) {
        const auto loaded = rovanel::loadBnoTree(kDemo);
        rovanel::forms::fillBnoTree(&tree, *loaded);
        benchmark::DoNotOptimize(tree.topLevelItemCount());
    }
}
BENCHMARK(BnoTreeWidgetLoad)->Unit(benchmark::kMillisecond);

static void BnoCheck_IoFloor(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(rovanel::readWholeFile(rovanel::dataFilePath(kDemo, "bnohr.dat")));
}
BENCHMARK(BnoCheck_IoFloor)->Unit(benchmark::kMillisecond);

static void BnoCheck(benchmark::State& state)
{
    const rovanel::RegulationKeys keys{"EU905", ""};  // on no line: the whole file is scanned
    for (auto _ : state) benchmark::DoNotOptimize(rovanel::checkBno(kDemo, keys, "E1190", false, 3));
}
BENCHMARK(BnoCheck)->Unit(benchmark::kMillisecond);

static void BnoSearchList_Floor(benchmark::State& state)
{
    const std::string text = rovanel::utf8ToCp1250("szívbetegség");
    for (auto _ : state) {
        std::size_t hits = 0;
        for (const rovanel::TreeNode& node : nodes()) hits += node.text.find(text) != std::string::npos;
        benchmark::DoNotOptimize(hits);
    }
}
BENCHMARK(BnoSearchList_Floor)->Unit(benchmark::kMillisecond);

static void BnoSearchList(benchmark::State& state)
{
    const std::string text = rovanel::utf8ToCp1250("SZÍVBETEGSÉG");
    for (auto _ : state) benchmark::DoNotOptimize(rovanel::bnoSearchAll(nodes(), text, true));
}
BENCHMARK(BnoSearchList)->Unit(benchmark::kMillisecond);
