// The corruption sweep: a valid database is damaged one file at a time (cut short, bytes flipped, numbers
// turned into text, offsets and counts made huge or negative, the file removed), and after each damage
// every reader of the data directory runs in a child process with a deadline. A crash, a hang or a
// result outside the data fails the case by name.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "db/DataFile.h"
#include "db/DescriptionBuilder.h"
#include "db/DrugSelection.h"
#include "db/FoundDrugs.h"
#include "db/Interaction.h"
#include "db/ProductIndex.h"
#include "db/SameAtc.h"
#include "db/Searches.h"
#include "db/StartupTables.h"
#include "db/StyledDocument.h"
#include "db/TreeFile.h"
#include "gen/DatabaseGenerator.h"
#include "tests/support/TinyDatabase.h"

namespace rovanel
{
namespace
{

using testing::ScratchDirectory;

// Generous under the sanitizers: a healthy case takes milliseconds.
constexpr auto kCaseDeadline = std::chrono::seconds(20);

struct Damage {
    std::string what;
    std::function<std::string(const std::string&)> apply;
};

// Every run of digits replaced by `replacement(run)`.
std::string replaceNumbers(const std::string& content, const std::function<std::string(std::string_view)>& by)
{
    std::string result;
    std::size_t i = 0;
    while (i < content.size()) {
        if (content[i] < '0' || content[i] > '9') {
            result += content[i++];
            continue;
        }
        const std::size_t start = i;
        while (i < content.size() && content[i] >= '0' && content[i] <= '9') ++i;
        result += by(std::string_view(content).substr(start, i - start));
    }
    return result;
}

std::vector<Damage> damages()
{
    std::vector<Damage> list;
    for (const double fraction : {0.0, 0.5}) {
        list.push_back({"cut at " + std::to_string(static_cast<int>(fraction * 100)) + "%",
                        [fraction](const std::string& c) {
                            return c.substr(0, static_cast<std::size_t>(c.size() * fraction));
                        }});
    }
    list.push_back({"cut to 1 byte", [](const std::string& c) { return c.substr(0, 1); }});
    list.push_back(
        {"last byte cut", [](const std::string& c) { return c.substr(0, c.empty() ? 0 : c.size() - 1); }});
    for (const double fraction : {0.0, 0.3, 0.7}) {
        list.push_back({"byte flipped at " + std::to_string(static_cast<int>(fraction * 100)) + "%",
                        [fraction](std::string c) {
                            if (!c.empty()) c[static_cast<std::size_t>((c.size() - 1) * fraction)] ^= 0xFF;
                            return c;
                        }});
    }
    list.push_back({"line ends removed", [](std::string c) {
                        c.erase(
                            std::remove_if(c.begin(), c.end(), [](char x) { return x == '\r' || x == '\n'; }),
                            c.end());
                        return c;
                    }});
    list.push_back({"digits turned into letters", [](std::string c) {
                        for (char& x : c)
                            if (x >= '0' && x <= '9') x = static_cast<char>('a' + (x - '0'));
                        return c;
                    }});
    list.push_back({"numbers all nines, same width", [](const std::string& c) {
                        return replaceNumbers(
                            c, [](std::string_view run) { return std::string(run.size(), '9'); });
                    }});
    list.push_back({"numbers at the 32-bit limit", [](const std::string& c) {
                        return replaceNumbers(c, [](std::string_view) { return std::string("2147483647"); });
                    }});
    list.push_back({"numbers past 64 bits", [](const std::string& c) {
                        return replaceNumbers(c, [](std::string_view) { return std::string(25, '9'); });
                    }});
    list.push_back({"numbers negative", [](const std::string& c) {
                        return replaceNumbers(c, [](std::string_view run) { return "-" + std::string(run); });
                    }});
    list.push_back({"NUL bytes for blanks", [](std::string c) {
                        std::replace(c.begin(), c.end(), ' ', '\0');
                        return c;
                    }});
    list.push_back({"over-long line", [](const std::string& c) { return std::string(70000, 'W') + c; }});
    return list;
}

// What the readers are asked about: drugs taken and groups listed, chosen where the database has its
// findings so that the engine reads deep into the damaged files.
struct Probe {
    std::vector<std::int32_t> drugsTaken;
    std::vector<std::int32_t> contraindications;
    std::vector<std::int64_t> atcNodes;
};

std::string checkEngine(const StartupTables& tables, const Probe& probe, KhMode mode, std::int64_t node)
{
    DrugSelection selection;
    selection.resetForInteractionWindow();
    for (const std::int32_t drug : probe.drugsTaken) (void)selection.addDrug(drug);
    selection.clearContraindications();
    for (const std::int32_t contraindication : probe.contraindications)
        (void)selection.addContraindication(contraindication);
    const KhRunResult result = KhRun(tables, selection, mode, node);
    if (result.found.size() > kKhFoundLimit) return "KhRun: more than 600 found";
    if (result.completed && result.listLines.size() != result.found.size())
        return "KhRun: lines and table differ";
    for (const FoundDrug& entry : result.found) {
        if (entry.record < 0 || static_cast<std::size_t>(entry.record) >= tables.productCodes.size())
            return "KhRun: found a record outside the table";
        if (mode == KhMode::Check && std::find(probe.drugsTaken.begin(), probe.drugsTaken.end(),
                                               entry.record) == probe.drugsTaken.end())
            return "KhRun: a check listed a drug not taken";
    }
    return {};
}

std::string checkSearches(const StartupTables& tables, const Probe& probe)
{
    DrugSelection selection;
    selection.resetForInteractionWindow();
    for (const std::int32_t drug : probe.drugsTaken) (void)selection.addDrug(drug);
    const auto valid = [&](const FoundDrugTable& table) {
        for (const FoundDrug& entry : table.entries())
            if (entry.record < 0 || static_cast<std::size_t>(entry.record) >= tables.productNames.size())
                return false;
        return foundDrugNames(tables, table).size() == table.entries().size();
    };
    for (std::int64_t key = -1; key < 8; ++key) {
        FoundDrugTable all;
        if (FillMhIdxList(tables, all, key).tableWritten && (!valid(all) || all.entries().size() > 600))
            return "side-effect search outside the data";
        FoundDrugTable among;
        (void)FillMhSpecIdxList2(tables, selection, among, key);
        if (!valid(among)) return "side-effect search among the drugs taken outside the data";
        FoundDrugTable ingredient;
        (void)HaKeres(tables, ingredient, key);
        if (!valid(ingredient) || ingredient.entries().size() > 600)
            return "ingredient search outside the data";
    }
    return {};
}

// The first broken expectation, or the empty text.
std::string exerciseEveryReader(const std::filesystem::path& directory, const Probe& probe)
{
    const StartupTables tables = loadStartupTables(directory, directory / "no-user.ini");
    const DatabaseCounts& counts = tables.counts;
    const std::int64_t products = static_cast<std::int64_t>(tables.productCodes.size());
    if (tables.reached >= LoadStep::CodeTables && products != counts[1]) return "code table 1 size";
    if (static_cast<std::int64_t>(tables.productNames.size()) > std::max(counts[1], 0))
        return "name list size";

    for (const NameGroup group : {NameGroup::Medicines, NameGroup::Nutrition}) {
        const auto names = nameListFill(tables, group);
        const std::int64_t size = group == NameGroup::Medicines ? counts.medicines() : counts.nutrition();
        if (static_cast<std::int64_t>(names.size()) > std::max<std::int64_t>(size, 0))
            return "name list fill size";
        for (std::size_t i = 0; i < names.size(); ++i) {
            const std::int32_t record = recordOfListPosition(tables, group, static_cast<std::int32_t>(i));
            if (record < 0 || record >= counts.products()) return "list position outside the records";
        }
    }

    DataFile nevpos(dataFilePath(directory, "nevpos.dat"));
    DataFile gyful(dataFilePath(directory, "gy.ful"));
    const auto last = static_cast<ProductRecord>(products);  // the loader bounds the count by 1,000,000
    for (const ProductRecord record :
         {kNoProduct, ProductRecord{0}, last / 2, last - 1, last, ProductRecord{INT32_MAX}}) {
        if (const auto location = locateProduct(tables, record)) {
            if (record < 0 || record >= products) return "located a record outside the table";
            if (location->name != tables.productName(record)) return "located name";
        }
        if (const auto block = productBlock(gyful, nevpos, record)) {
            std::size_t bytes = 0;
            for (const auto& line : *block) {
                if (line.size() > 1253) return "block line longer than its buffer";
                bytes += line.size();
            }
            if (bytes > 64000) return "block larger than its bound";
            if (!block->empty()) {
                const ProductRecord found = identifyProduct(tables, block->front());
                if (found < -1 || found >= products) return "identified a record outside the table";
            }
        }
    }

    for (const IndexPair pair :
         {IndexPair::Atc, IndexPair::Contraindication, IndexPair::Ingredient, IndexPair::SideEffect}) {
        DataFile directoryFile(dataFilePath(directory, directoryFileName(pair)));
        DataFile listFile(dataFilePath(directory, listFileName(pair)));
        const std::int64_t keys = static_cast<std::int64_t>(directoryFile.size() / 16) + 2;
        for (std::int64_t key = -1; key < std::min<std::int64_t>(keys, 64); ++key) {
            const auto products_ = productsOfKey(directory, pair, key);
            const auto record = keyRecord(directoryFile, key);
            if (!record && !products_.empty()) return "products of a key without a record";
            if (record && static_cast<std::int64_t>(products_.size()) > record->count)
                return "more products than the count";
            if (products_.size() > listFile.size()) return "more products than the list file holds";
        }
    }

    DataFile contraindicationNames(dataFilePath(directory, "ellnrend.dat"));
    for (const std::int64_t index :
         {std::int64_t{-1}, std::int64_t{0}, std::int64_t{1}, std::int64_t{1000}}) {
        const auto name = nameLine(contraindicationNames, index);
        if (name && name->size() > 254) return "name line longer than its buffer";
    }

    for (const char* tree : {"atcnren2.dat", "ellnren2.dat", "mhnren2.dat", "rend2.ful"}) {
        if (const auto nodes = loadTreeFile(dataFilePath(directory, tree)))
            for (std::size_t i = 0; i < nodes->size(); ++i)
                if ((*nodes)[i].depth < 0 || (i > 0 && (*nodes)[i].depth > (*nodes)[i - 1].depth + 1))
                    return "tree depth out of step";
    }

    // A description of a medicine and of a nutrition product, and the same-ATC listing of each.
    for (const std::int32_t record : {probe.drugsTaken.front(), counts.medicines()}) {
        const Description description = buildDescription(tables, record);
        if (!description.built && !description.document.empty()) return "a description not built shows text";
        if (description.document.plainText().size() > 1'000'000) return "description larger than any block";
        if (record < 0 || static_cast<std::size_t>(record) >= tables.productCodes.size()) continue;
        const std::string_view code = tables.productCodes[static_cast<std::size_t>(record)];
        const AtcLevels levels = atcLevels(tables, code);
        if (levels.lines.size() > 5) return "more than five ATC levels";
        const SameAtcList same =
            sameAtcProducts(tables, code, levels.levelLength, SameAtcOrder::Price, false);
        if (same.lines.size() != same.found.size()) return "same-ATC lines and table differ";
        for (const FoundDrug& entry : same.found)
            if (entry.record < 0 || static_cast<std::size_t>(entry.record) >= tables.productCodes.size())
                return "same-ATC listing outside the table";
    }

    if (std::string broken = checkEngine(tables, probe, KhMode::Check, 0); !broken.empty()) return broken;
    for (const std::int64_t node : probe.atcNodes)
        if (std::string broken = checkEngine(tables, probe, KhMode::AtcGroup, node); !broken.empty())
            return broken;
    return checkSearches(tables, probe);
}

// Runs the readers in a child process so that a crash or a hang fails only this case.
std::string runWithDeadline(const std::filesystem::path& directory, const Probe& probe)
{
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child < 0) return "fork failed";
    if (child == 0) {
        const std::string broken = exerciseEveryReader(directory, probe);
        if (!broken.empty()) std::fprintf(stderr, "broken: %s\n", broken.c_str());
        std::fflush(nullptr);
        _exit(broken.empty() ? 0 : 1);
    }
    const auto deadline = std::chrono::steady_clock::now() + kCaseDeadline;
    int status = 0;
    while (waitpid(child, &status, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > deadline) {
            kill(child, SIGKILL);
            waitpid(child, &status, 0);
            return "hang: no result within the deadline";
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    if (WIFSIGNALED(status)) return "crash: signal " + std::to_string(WTERMSIG(status));
    if (WEXITSTATUS(status) != 0) return "an outcome outside the data (see the child's output)";
    return {};
}

void sweep(const ScratchDirectory& database, const Probe& probe)
{
    ASSERT_EQ(runWithDeadline(database.path(), probe), "") << "the undamaged database";
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(database.path()))
        files.push_back(entry.path().filename().string());
    std::sort(files.begin(), files.end());
    const auto list = damages();
    for (const std::string& file : files) {
        const std::string intact = database.read(file);
        for (const Damage& damage : list) {
            database.write(file, damage.apply(intact));
            EXPECT_EQ(runWithDeadline(database.path(), probe), "") << file << ", " << damage.what;
        }
        database.remove(file);
        EXPECT_EQ(runWithDeadline(database.path(), probe), "") << file << ", removed";
        database.write(file, intact);
    }
}

TEST(CorruptionSweep, TinyDatabaseSurvivesEveryDamageToEveryFile)
{
    ScratchDirectory database;
    testing::writeTinyDatabase(database);
    sweep(database, Probe{{0, 1, 2}, {1}, {-1, 0, 1, 2, 3, 1000}});
}

TEST(CorruptionSweep, GeneratedDatabaseSurvivesEveryDamageToEveryFile)
{
    ScratchDirectory database;
    const auto planted = generateDatabase(database.path(), GeneratorOptions{300, 7});
    ASSERT_TRUE(planted);
    // The drugs with findings: an avoid pair, a careful pair, the contraindicated one and the drug whose
    // careful line is too long (last, so that the others are read before it stops the run).
    const Probe probe{{planted->avoidFirst, planted->avoidSecond, planted->carefulFirst,
                       planted->carefulSecond, planted->contraindicated, planted->longCodeLineDrug},
                      {planted->contraindicationIndex},
                      {0, 1, planted->contraindicatedGroupNode, planted->atcGroups - 1}};
    // On the undamaged files the probe reaches the findings, so the damaged runs read what they read.
    const StartupTables tables = loadStartupTables(database.path(), database.path() / "no-user.ini");
    DrugSelection selection;
    selection.resetForInteractionWindow();
    for (const std::int32_t drug : probe.drugsTaken) (void)selection.addDrug(drug);
    const KhRunResult check = KhRun(tables, selection, KhMode::Check, 0);
    EXPECT_FALSE(check.completed) << "the over-long careful line stops the check";
    ASSERT_EQ(check.messages.size(), 1u);
    (void)selection.deleteDrug(6, 5);
    EXPECT_GE(KhRun(tables, selection, KhMode::Check, 0).found.size(), 4u);
    EXPECT_FALSE(KhRun(tables, selection, KhMode::AtcGroup, planted->contraindicatedGroupNode).found.empty());
    sweep(database, probe);
}

}  // namespace
}  // namespace rovanel
