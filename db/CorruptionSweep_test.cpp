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
#include "db/ProductIndex.h"
#include "db/StartupTables.h"
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

// The first broken expectation, or the empty text.
std::string exerciseEveryReader(const std::filesystem::path& directory)
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
    for (const std::int64_t record :
         {std::int64_t{-1}, std::int64_t{0}, products / 2, products - 1, products, std::int64_t{1} << 40}) {
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
                const std::int32_t found = identifyProduct(tables, block->front());
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
    return {};
}

// Runs the readers in a child process so that a crash or a hang fails only this case.
std::string runWithDeadline(const std::filesystem::path& directory)
{
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child < 0) return "fork failed";
    if (child == 0) {
        const std::string broken = exerciseEveryReader(directory);
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

void sweep(const ScratchDirectory& database)
{
    ASSERT_EQ(runWithDeadline(database.path()), "") << "the undamaged database";
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(database.path()))
        files.push_back(entry.path().filename().string());
    std::sort(files.begin(), files.end());
    const auto list = damages();
    for (const std::string& file : files) {
        const std::string original = database.read(file);
        for (const Damage& damage : list) {
            database.write(file, damage.apply(original));
            EXPECT_EQ(runWithDeadline(database.path()), "") << file << ", " << damage.what;
        }
        database.remove(file);
        EXPECT_EQ(runWithDeadline(database.path()), "") << file << ", removed";
        database.write(file, original);
    }
}

TEST(CorruptionSweep, TinyDatabaseSurvivesEveryDamageToEveryFile)
{
    ScratchDirectory database;
    testing::writeTinyDatabase(database);
    sweep(database);
}

}  // namespace
}  // namespace rovanel
