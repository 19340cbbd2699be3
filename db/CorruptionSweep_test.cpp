// The corruption sweep: a valid database is damaged one file at a time (cut short, bytes flipped, numbers
// turned into text, offsets and counts made huge or negative, the file removed), and after each damage
// every reader of the data directory runs in a child process with a deadline. A crash, a hang or a
// result outside the data fails the case by name.
#include <gtest/gtest.h>
#if !defined(_WIN32)
#include <sys/wait.h>
#include <unistd.h>
#endif

#include <algorithm>
#include <cstdio>
#include <functional>
#include <regex>
#include <string>
#include <vector>

#include "app/DatabaseRefresh.h"
#include "catalogues/Formulary.h"
#include "catalogues/MagiStore.h"
#include "catalogues/MedicalAids.h"
#include "certs/PublicCareCertificate.h"
#include "certs/SpecialistRecommendation.h"
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
#include "gen/DatabaseCheck.h"
#include "gen/DatabaseGenerator.h"
#include "gen/NeakImport.h"
#include "pricelist/DetailedList.h"
#include "rx/BnoRules.h"
#include "rx/BnoTree.h"
#include "rx/PackageData.h"
#include "rx/Qualification.h"
#include "tests/fixtures/Databases.h"
#include "tests/support/NeakSource.h"

namespace rovanel
{
namespace
{

using testing::ScratchDirectory;

// Seconds, generous under the sanitizers: a healthy case takes milliseconds.
constexpr unsigned kCaseDeadline = 20;

struct Damage {
    std::string what;
    std::function<std::string(const std::string&)> apply;
};

std::vector<Damage> damages()
{
    using Text = const std::string&;
    // Every run of digits replaced by `format` ("$&" is the run).
    const auto numbers = [](const char* format) {
        return [format](Text c) { return std::regex_replace(c, std::regex("[0-9]+"), format); };
    };
    const auto flip = [](double at) {
        return [at](std::string c) {
            if (!c.empty()) c[static_cast<std::size_t>(static_cast<double>(c.size() - 1) * at)] ^= 0xFF;
            return c;
        };
    };
    const auto bytes = [](char (*by)(char)) {
        return [by](std::string c) {
            std::transform(c.begin(), c.end(), c.begin(), by);
            return c;
        };
    };
    return {
        {"cut at 0%", [](Text) { return std::string(); }},
        {"cut at 50%", [](Text c) { return c.substr(0, c.size() / 2); }},
        {"cut to 1 byte", [](Text c) { return c.substr(0, 1); }},
        {"last byte cut", [](Text c) { return c.substr(0, c.empty() ? 0 : c.size() - 1); }},
        {"byte flipped at 0%", flip(0.0)},
        {"byte flipped at 30%", flip(0.3)},
        {"byte flipped at 70%", flip(0.7)},
        {"line ends removed",
         [](std::string c) {
             std::erase_if(c, [](char x) { return x == '\r' || x == '\n'; });
             return c;
         }},
        {"digits turned into letters",
         bytes([](char x) { return x >= '0' && x <= '9' ? static_cast<char>('a' + (x - '0')) : x; })},
        {"numbers all nines, same width", bytes([](char x) { return x >= '0' && x <= '9' ? '9' : x; })},
        {"numbers at the 32-bit limit", numbers("2147483647")},
        {"numbers past 64 bits", numbers("9999999999999999999999999")},
        {"numbers negative", numbers("-$&")},
        {"NUL bytes for blanks", bytes([](char x) { return x == ' ' ? '\0' : x; })},
        {"over-long line", [](Text c) { return std::string(70000, 'W') + c; }},
    };
}

// What the readers are asked about: drugs taken and groups listed, chosen where the database has its
// findings so that the engine reads deep into the damaged files.
struct Probe {
    std::vector<std::int32_t> drugsTaken;
    std::vector<std::int32_t> contraindications;
    std::vector<std::int64_t> atcNodes;
};

// The interaction window's selection of the probe's drugs and contraindications.
DrugSelection selectionOf(const Probe& probe)
{
    DrugSelection selection;
    selection.resetForInteractionWindow();
    for (const std::int32_t drug : probe.drugsTaken) (void)selection.addDrug(drug);
    selection.clearContraindications();
    for (const std::int32_t contraindication : probe.contraindications)
        (void)selection.addContraindication(contraindication);
    return selection;
}

std::string checkEngine(const StartupTables& tables, const Probe& probe, KhMode mode, std::int64_t node)
{
    DrugSelection selection = selectionOf(probe);
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
    const DrugSelection selection = selectionOf(Probe{probe.drugsTaken, {}, {}});
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

// The prescription files: BNO tree, rules, title flags and qualifications, and the package data of the
// drugs probed.
std::string checkPrescriptionReaders(const std::filesystem::path& directory, const StartupTables& tables,
                                     const Probe& probe)
{
    const auto tree = loadBnoTree(directory);
    if (tree) {
        if (const auto found = findBnoCode(*tree, "I10H0");
            found && !nodeHoldsCode((*tree)[*found].text, "I10H0"))
            return "BNO code found in a node that does not hold it";
        for (const std::size_t hit : bnoSearchAll(*tree, "\xE9", true))
            if (hit >= tree->size()) return "BNO search hit outside the tree";
    }
    for (const RegulationKeys& keys :
         {RegulationKeys{"EU901", "_EU902/a"}, RegulationKeys{"EU905,EU901", "EU901,_EU902/a"},
          RegulationKeys{"", ""}}) {
        for (const bool fee : {false, true}) {
            const BnoCheckResult check = checkBno(directory, keys, "E1190", fee, 3);
            if (check.accepted == check.message.has_value()) return "BNO check without one outcome";
            const BnoCodeList list = bnoCodeList(directory, keys, fee);
            if (list.lines.empty() != list.message.has_value()) return "BNO list without one outcome";
        }
    }
    const std::string tamttt = readWholeFile(dataFilePath(directory, "tamttt.dat")).value_or(std::string());
    for (const char* key : {"900000001", "900000009", "2", ";"}) {
        const TamtttEntry entry = lookupTamttt(tamttt, key);
        if (entry.flags.size() > kTamtttEntryLimit) return "title flags longer than the entry";
    }
    for (const std::int32_t record : probe.drugsTaken) {
        const auto package = packageData(tables, directory, record);
        if (package && package->titleFlags.size() != 11) return "Layout A flags not 11 characters";
    }
    return {};
}

// The detailed list of each probed group, sorted by every column, and the public-care list beside it.
std::string checkDetailedList(const StartupTables& tables, const Probe& probe)
{
    DetailedList list(tables);
    for (const std::int64_t node : probe.atcNodes) {
        if (node < 0 || static_cast<std::size_t>(node) >= tables.atcGroupCodes.size()) continue;
        const std::string code(tables.atcGroupCodes[static_cast<std::size_t>(node)]);
        for (const bool hide : {false, true}) {
            list.setHideDeleted(hide);
            (void)list.bFillSameAtc(code, ListingMode::Plain);
            if (list.rows().size() > static_cast<std::size_t>(kDetailedListLimit))
                return "detailed list past 601 rows";
            for (const DetailedRow& row : list.rows())
                if (row.record < 0 || row.record >= tables.counts.products())
                    return "detailed row outside the records";
            for (int column = 0; column < kDetailedColumnCount; ++column)
                (void)list.RefLstColumnClick(column);
            (void)list.fixedGroupClick(SupportKind::Normative, 0);
        }
    }
    return {};
}

// The public-care list and certificate, and the specialist recommendation's fill for the probed groups
// (its active ingredient is read from atcnrend.dat).
std::string checkCertificates(const StartupTables& tables, const Probe& probe)
{
    const auto entries = readPublicCareList(tables.dataDirectory / "kgy.txt");
    if (entries)
        for (const PublicCareEntry& entry : *entries)
            if (entry.atcCode.size() + entry.ttt.size() + entry.name.size() + entry.form.size() +
                    entry.ingredient.size() >
                511)
                return "public-care line longer than its buffer";
    const auto certificate =
        buildPublicCareCertificate(entries, tables.dataDirectory / "beteg.ini", "20261123");
    if (certificate.message.has_value() == entries.has_value()) return "public-care message without cause";
    RecommendationGrids grids;
    for (const std::int64_t node : probe.atcNodes) {
        RecommendationHandover handover{"I10H0", "90%  EU13/b", "", {}, {}, {}, {}, {}};
        if (node >= 0 && static_cast<std::size_t>(node) < tables.atcGroupCodes.size())
            handover.atcCode = std::string(tables.atcGroupCodes[static_cast<std::size_t>(node)]);
        const auto message = fillRecommendation(grids, handover, tables.dataDirectory, tables.atcGroupCodes,
                                                tables.dataDirectory / "beteg.ini");
        if (!message && grids.gg[1][0].empty()) return "recommendation line missing";
        if (grids.gg[1][1].size() > 254) return "active ingredient longer than its read";
    }
    if (recommendationLayout(grids, "2026.11.23.").pages.empty()) return "recommendation without a page";
    return {};
}

// The medical aids catalogue, the FoNo formulary and a magistral list kept in the data directory.
std::string checkCatalogues(const std::filesystem::path& directory, const MessageTable& messages)
{
    const AidCatalogue aids = loadAidCatalogue(directory);
    const std::uint64_t seSize = DataFile(dataFilePath(directory, "se.dat")).size();
    for (int node = -1; node < std::min<int>(static_cast<int>(aids.tree.size()) + 1, 40); ++node) {
        const auto listed = listAidGroup(aids, node);
        if (listed.size() > seSize) return "more aids than se.dat has bytes";
        for (const AidEntry& aid : listed)
            if (!aidDescription(aids, messages, node, aid.code)) return "a listed aid without description";
        if (findInAidTree(aids, aids.groupCode(node), node + 1) >= static_cast<int>(aids.tree.size()))
            return "tree search outside the tree";
    }
    for (const AidNameHit& hit : findAidNames(aids, "A"))
        if (hit.node >= static_cast<int>(aids.codes.size())) return "name hit in a group outside the tree";

    const FonoCatalogue fono = loadFonoCatalogue(directory);
    for (int item = -1; item < std::min<int>(static_cast<int>(fono.names.size()) + 1, 40); ++item)
        if (const auto found = readFonoItem(fono, item)) {
            if (found->name.size() > kFonoNameLimit) return "FoNo name longer than its buffer";
            if (fonoDocument(*found, TextStyle{}).plainText() != fonoText(*found))
                return "FoNo text and box differ";
        }
    for (const TreeNode& node : fono.tree)
        if (fonoItemNamed(fono, node.text) >= static_cast<int>(fono.names.size()))
            return "FoNo node outside the names";

    MagiStore magi(directory);
    if (!magi.open()) {
        for (const std::string& name : magi.names()) (void)magi.recipe(name);
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
    for (const std::int64_t index : {-1, 0, 1, 1000})
        if (const auto name = nameLine(contraindicationNames, index); name && name->size() > 254)
            return "name line longer than its buffer";

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

    if (std::string broken = checkPrescriptionReaders(directory, tables, probe); !broken.empty())
        return broken;
    if (std::string broken = checkCatalogues(directory, tables.messages); !broken.empty()) return broken;
    if (std::string broken = checkEngine(tables, probe, KhMode::Check, 0); !broken.empty()) return broken;
    for (const std::int64_t node : probe.atcNodes)
        if (std::string broken = checkEngine(tables, probe, KhMode::AtcGroup, node); !broken.empty())
            return broken;
    if (std::string broken = checkDetailedList(tables, probe); !broken.empty()) return broken;
    if (std::string broken = checkCertificates(tables, probe); !broken.empty()) return broken;
    // The database refresh reads ZARAS.INF: the database against itself is never newer.
    if (const RefreshCheck refresh = checkRefresh(directory, ""); refresh.newer || !refresh.files.empty())
        return "refresh found the database newer than itself";
    return checkSearches(tables, probe);
}

// Runs `exercise` in a child process so that a crash or a hang fails only this case. Windows has no fork:
// there the readers run in the test's own process, so a crash ends the whole suite.
std::string runWithDeadline(const std::function<std::string()>& exercise)
{
#if defined(_WIN32)
    return exercise();
#else
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child < 0) return "fork failed";
    if (child == 0) {
        alarm(kCaseDeadline);  // SIGALRM ends a hung child
        const std::string broken = exercise();
        if (!broken.empty()) std::fprintf(stderr, "broken: %s\n", broken.c_str());
        std::fflush(nullptr);
        _exit(broken.empty() ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM) return "hang: no result within the deadline";
    if (WIFSIGNALED(status)) return "crash: signal " + std::to_string(WTERMSIG(status));
    if (WEXITSTATUS(status) != 0) return "an outcome outside the data (see the child's output)";
    return {};
#endif
}

// Each file of `files` in `folder` damaged in every way and then removed, `run` after each damage.
void damageEach(const ScratchDirectory& folder, const std::vector<std::string>& files,
                const std::function<std::string()>& run)
{
    ASSERT_EQ(runWithDeadline(run), "") << "the undamaged files";
    const auto list = damages();
    for (const std::string& file : files) {
        const std::string intact = folder.read(file);
        for (const Damage& damage : list) {
            folder.write(file, damage.apply(intact));
            EXPECT_EQ(runWithDeadline(run), "") << file << ", " << damage.what;
        }
        folder.remove(file);
        EXPECT_EQ(runWithDeadline(run), "") << file << ", removed";
        folder.write(file, intact);
    }
}

void sweep(const ScratchDirectory& database, const Probe& probe)
{
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(database.path()))
        files.push_back(entry.path().filename().string());
    std::sort(files.begin(), files.end());
    damageEach(database, files, [&] { return exerciseEveryReader(database.path(), probe); });
}

TEST(CorruptionSweep, TinyDatabaseSurvivesEveryDamageToEveryFile)
{
    ScratchDirectory database;
    testing::writeTinyDatabase(database);
    database.write("kgy.txt", "C08CA-01;210751477;NAME;3;amlodipin \r\n");
    sweep(database, Probe{{0, 1, 2}, {1}, {-1, 0, 1, 2, 3, 1000}});
}

TEST(CorruptionSweep, GeneratedDatabaseSurvivesEveryDamageToEveryFile)
{
    ScratchDirectory database;
    const auto planted = generateDatabase(database.path(), GeneratorOptions{300, 7});
    ASSERT_TRUE(planted);
    database.write("kgy.txt", "C08CA-01;210751477;NAME;3;amlodipin \r\nA;;B\r\n");
    // A magistral list beside the catalogues, so that its reader is damaged with them.
    database.write("MagiList.txt", "A\r\nB\r\n");
    database.write("A", "Rp.\r\n");
    // The drugs with findings: an avoid pair, a careful pair, the contraindicated one and the drug whose
    // careful line is too long (last, so that the others are read before it stops the run).
    const Probe probe{{planted->avoidFirst, planted->avoidSecond, planted->carefulFirst,
                       planted->carefulSecond, planted->contraindicated, planted->longCodeLineDrug},
                      {planted->contraindicationIndex},
                      {0, 1, planted->contraindicatedGroupNode, planted->atcGroups - 1}};
    // On the undamaged files the probe reaches the findings, so the damaged runs read what they read.
    const StartupTables tables = loadStartupTables(database.path(), database.path() / "no-user.ini");
    DrugSelection selection = selectionOf(Probe{probe.drugsTaken, {}, {}});
    const KhRunResult check = KhRun(tables, selection, KhMode::Check, 0);
    EXPECT_FALSE(check.completed) << "the over-long careful line stops the check";
    ASSERT_EQ(check.messages.size(), 1u);
    (void)selection.deleteDrug(6, 5);
    EXPECT_GE(KhRun(tables, selection, KhMode::Check, 0).found.size(), 4u);
    EXPECT_FALSE(KhRun(tables, selection, KhMode::AtcGroup, planted->contraindicatedGroupNode).found.empty());
    sweep(database, probe);
}

// The importer's source tables damaged one at a time: the import either refuses with the file named, or
// writes a database the check finds consistent, and the readers survive it.
TEST(CorruptionSweep, ImporterRefusesOrWritesAConsistentDatabaseFromEveryDamagedSource)
{
    ScratchDirectory source;
    testing::NeakSource{}.writeTo(source.path());
    const auto import = [&source] {
        ScratchDirectory output;
        std::string error;
        const auto report = importNeak(source.path(), output.path(), {}, &error);
        if (!report)
            return error.starts_with(source.path().string()) ? std::string()
                                                             : "error without the file: " + error;
        if (!report->problems.empty()) return "inconsistent output: " + report->problems.front();
        return exerciseEveryReader(output.path(), Probe{{0, 1}, {}, {0, 1}});
    };
    std::vector<std::string> files{"neak_forgalmi_adatok/gyogyszer_orszagos_forgalom_202501.csv"};
    for (const std::string_view file : {kAtcBookFile, kEuPointsFile, kEuTextsFile, kBnoCodesFile,
                                        kBnoLinksFile, kRightsFile, kSpecialtiesFile, kAidsFile})
        files.emplace_back(file);
    damageEach(source, files, import);
}

}  // namespace
}  // namespace rovanel
