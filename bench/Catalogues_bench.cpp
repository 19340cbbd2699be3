// The catalogue windows on the demo database (every aid of the NEAK catalogue, the whole formulary), each
// beside an I/O floor that only reads the same files' bytes: the first show of the aids window (tree, lists
// and notes), one aid's description (the last aid of the largest group, so the walk is longest) and one
// FoNo item.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <filesystem>

#include "bench/BenchApplication.h"
#include "bench/DemoGroups.h"
#include "catalogues/Formulary.h"
#include "catalogues/MedicalAids.h"
#include "catalogues/forms/Se.h"
#include "db/DataFile.h"
#include "db/MessageTable.h"
#include "db/SharedState.h"

namespace
{

const std::filesystem::path kDemo = ROVANEL_DEMO_DB;

void AidsWindowFirstShow_IoFloor(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(fileBytes(kDemo, {"senrend2.dat", "senrend2.dat", "sekod2.dat", "sepos.dat",
                                                   "seiso.dat", "senev.dat", "semegj.dat"}));
}
BENCHMARK(AidsWindowFirstShow_IoFloor)->Unit(benchmark::kMillisecond);

void AidsWindowFirstShow(benchmark::State& state)
{
    benchApplication();
    rovanel::SharedState shared;
    shared.tables.dataDirectory = kDemo;
    for (auto _ : state) {
        TSegedeszk window(shared);
        window.show();
        QCoreApplication::processEvents();
        benchmark::DoNotOptimize(window.windowTitle());
    }
}
BENCHMARK(AidsWindowFirstShow)->Unit(benchmark::kMillisecond);

// The group with the most aids and its last aid.
struct LongestWalk {
    rovanel::AidCatalogue catalogue;
    int node = -1;
    std::string code;
};
const LongestWalk& longestWalk()
{
    static const LongestWalk walk = [] {
        LongestWalk result;
        result.catalogue = rovanel::loadAidCatalogue(kDemo);
        std::size_t most = 0;
        for (int node = 0; node < static_cast<int>(result.catalogue.tree.size()); ++node)
            if (result.catalogue.groupCode(node).size() > 2) {
                const auto aids = rovanel::listAidGroup(result.catalogue, node);
                if (aids.size() > most)
                    most = aids.size(), result.node = node, result.code = aids.back().code;
            }
        return result;
    }();
    return walk;
}

void AidDescription_IoFloor(benchmark::State& state)
{
    for (auto _ : state) benchmark::DoNotOptimize(fileBytes(kDemo, {"se.dat"}));
}
BENCHMARK(AidDescription_IoFloor)->Unit(benchmark::kMicrosecond);

void AidDescription(benchmark::State& state)
{
    const LongestWalk& walk = longestWalk();
    const rovanel::MessageTable messages =
        rovanel::MessageTable::parse(rovanel::readWholeFile(kDemo / "MSG.DAT").value_or(""));
    for (auto _ : state)
        benchmark::DoNotOptimize(rovanel::aidDescription(walk.catalogue, messages, walk.node, walk.code));
}
BENCHMARK(AidDescription)->Unit(benchmark::kMicrosecond);

void FonoItem_IoFloor(benchmark::State& state)
{
    for (auto _ : state) benchmark::DoNotOptimize(fileBytes(kDemo, {"fono.dat"}));
}
BENCHMARK(FonoItem_IoFloor)->Unit(benchmark::kMicrosecond);

void FonoItem(benchmark::State& state)
{
    const rovanel::FonoCatalogue catalogue = rovanel::loadFonoCatalogue(kDemo);
    const int last = static_cast<int>(catalogue.names.size()) - 1;
    for (auto _ : state) {
        const auto item = rovanel::readFonoItem(catalogue, last);
        benchmark::DoNotOptimize(rovanel::fonoDocument(*item, rovanel::TextStyle{}));
    }
}
BENCHMARK(FonoItem)->Unit(benchmark::kMicrosecond);

}  // namespace
