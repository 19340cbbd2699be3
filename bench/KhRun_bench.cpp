// The interaction engine: a check of 20 drugs and a 600-product group listing with 20 drugs taken, each
// beside its I/O floor (opening the engine's files and reading the nevpos.dat records and gy.ful blocks the
// run touches, parsing nothing).
#include <benchmark/benchmark.h>

#include <array>
#include <memory>

#include "db/DataFile.h"
#include "db/Interaction.h"
#include "db/SharedState.h"
#include "db/Text.h"
#include "tests/support/EngineDatabase.h"

namespace
{

using rovanel::testing::EngineDatabase;
using rovanel::testing::EngineProduct;
using rovanel::testing::ScratchDirectory;

struct BenchDatabase {
    ScratchDirectory directory;
    rovanel::SharedState state;
    std::vector<std::int32_t> touched;  // records the run reads
};

std::string code(const char* stem, int number)
{
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%s%04d", stem, number % 10000);
    return buffer;
}

// 600 products in group "C08" and 20 drugs taken (N05..) whose careful and avoid codes are ATC prefixes
// that hit some of each other's own codes and some of the group.
std::unique_ptr<BenchDatabase> makeDatabase(int codesPerSection)
{
    auto bench = std::make_unique<BenchDatabase>();
    EngineDatabase database;
    database.atcGroups = {{"C", "Szív"}, {"C08", "Kalciumcsatorna-blokkolók"}, {"N", "Idegrendszer"}};
    database.contraindications = {{"E01", "Terhesség"}};
    for (int i = 0; i < 600; ++i) {
        EngineProduct product(code("C08CA-", i), "TERMÉK " + std::to_string(1000 + i),
                              {code("C08CA-", i).substr(0, 8)});
        for (int k = 0; k < 5; ++k) product.careful.push_back(code("N0", 100 + (i + k) % 40));
        product.contraindications = {"E0" + std::to_string(2 + i % 7)};
        database.products.push_back(product);
    }
    for (int d = 0; d < 20; ++d) {
        EngineProduct drug(code("N05BA-", d), "SZEDETT " + std::to_string(d),
                           {code("N05BA-", d).substr(0, 8)});
        drug.own.push_back(code("N0", 100 + d));
        for (int k = 0; k < codesPerSection; ++k) {
            drug.careful.push_back(code("A1", (d * 131 + k) % 997));
            drug.avoid.push_back(code("B2", (d * 71 + k) % 991));
        }
        drug.careful.back() = code("N0", 100 + (d + 1) % 20);         // one careful finding each
        drug.avoid.back() = "C08CA-" + std::to_string(d % 10) + "1";  // excludes a few group products
        database.products.push_back(drug);
    }
    database.write(bench->directory);
    bench->state.tables =
        rovanel::loadStartupTables(bench->directory.path(), bench->directory.path() / "none.ini");
    bench->state.selection.resetForInteractionWindow();
    bench->state.selection.clearContraindications();
    for (int d = 0; d < 20; ++d) (void)bench->state.selection.addDrug(600 + d);
    (void)bench->state.selection.addContraindication(0);
    for (int d = 0; d < 20; ++d) bench->touched.push_back(600 + d);
    return bench;
}

void ioFloor(benchmark::State& state, BenchDatabase& bench, bool group)
{
    std::vector<std::int32_t> records = bench.touched;
    if (group)
        for (int i = 0; i < 600; ++i) records.push_back(i);
    for (auto _ : state) {
        std::size_t bytes = 0;
        const auto& dir = bench.state.tables.dataDirectory;
        for (const char* name : {"nevrend.dat", "atcindin.dat", "atcind.dat", "ellindin.dat", "ellind.dat",
                                 "ellnrend.dat", "atcnrend.dat"})
            bytes += rovanel::DataFile(rovanel::dataFilePath(dir, name)).size();
        rovanel::DataFile nevpos(rovanel::dataFilePath(dir, "nevpos.dat"));
        rovanel::DataFile gyful(rovanel::dataFilePath(dir, "gy.ful"));
        for (std::int32_t record : records) {
            const std::string position = nevpos.read(static_cast<std::uint64_t>(record) * 10, 10);
            const auto offset = rovanel::parseInteger(rovanel::trim(position));
            const std::string block = gyful.read(static_cast<std::uint64_t>(offset.value_or(0)), 2048);
            bytes += block.find("#vege");
        }
        benchmark::DoNotOptimize(bytes);
    }
}

BenchDatabase& checkDatabase()
{
    static auto bench = makeDatabase(100);
    return *bench;
}
BenchDatabase& fullDatabase()
{
    static auto bench = makeDatabase(20);
    return *bench;
}

void KhRun_IoFloor(benchmark::State& state, BenchDatabase& (*database)(), bool group)
{
    ioFloor(state, database(), group);
}
void KhRun(benchmark::State& state, BenchDatabase& (*database)(), rovanel::KhMode mode, int node)
{
    BenchDatabase& bench = database();
    for (auto _ : state)
        benchmark::DoNotOptimize(rovanel::KhRun(bench.state.tables, bench.state.selection, mode, node));
}

}  // namespace

// 20 drugs with 100 careful and 100 avoid codes each: the 401st pooled careful code (drug 5) stops the run
// with entry 87, as the engine's limit says; the time is that of reaching the limit.
BENCHMARK_CAPTURE(KhRun_IoFloor, Check20x100, checkDatabase, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(KhRun, Check20x100, checkDatabase, rovanel::KhMode::Check, -1)
    ->Unit(benchmark::kMillisecond);
// The largest check that completes: 20 drugs with 20 careful and 20 avoid codes (400 pooled each).
BENCHMARK_CAPTURE(KhRun_IoFloor, Check20x20, fullDatabase, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(KhRun, Check20x20, fullDatabase, rovanel::KhMode::Check, -1)->Unit(benchmark::kMillisecond);
// Group "C08" (600 products) with 20 drugs taken and a contraindication chosen.
BENCHMARK_CAPTURE(KhRun_IoFloor, Group600, fullDatabase, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(KhRun, Group600, fullDatabase, rovanel::KhMode::AtcGroup, 1)->Unit(benchmark::kMillisecond);
