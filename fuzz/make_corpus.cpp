// Writes the seed corpus of every fuzz target: rovanel_fuzz_corpus OUTPUT-DIRECTORY makes one folder per
// target holding inputs built from a small valid database, so the fuzzers start from files that reach
// deep into each reader.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "db/DataFile.h"
#include "fuzz/FuzzLayouts.h"
#include "tests/support/TinyDatabase.h"

using namespace rovanel;
using namespace rovanel::fuzzing;

namespace
{

// Seeds stay small so that the fuzzers run fast: each file is cut to this many bytes.
constexpr std::size_t kFileLimit = 16 * 1024;

using Database = std::map<std::string, std::string, std::less<>>;

Database readDatabase(const std::filesystem::path& directory)
{
    Database files;
    for (const auto& entry : std::filesystem::directory_iterator(directory))
        files[entry.path().filename().string()] =
            readWholeFile(entry.path()).value_or("").substr(0, kFileLimit);
    return files;
}

std::string input(const std::string& parameters, const std::vector<std::string_view>& names,
                  const Database& files)
{
    std::string bytes = parameters;
    for (const std::string_view name : names) {
        bytes += kSegmentSeparator;
        const auto found = files.find(name);
        if (found != files.end()) bytes += found->second;
    }
    return bytes;
}

void writeSeed(const std::filesystem::path& folder, int number, const std::string& bytes)
{
    std::filesystem::create_directories(folder);
    std::ofstream out(folder / ("seed-" + std::to_string(number)), std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: rovanel_fuzz_corpus OUTPUT-DIRECTORY\n");
        return 2;
    }
    const std::filesystem::path output = argv[1];
    testing::ScratchDirectory tiny;
    testing::writeTinyDatabase(tiny);
    const Database database = readDatabase(tiny.path());
    Database withUserIni = database;
    withUserIni["RV.INI"] = "[Rovanel Beallitasok]\r\nNapiKezTeljesArbol=IGEN\r\n";

    for (const FuzzLayout& layout : fuzzLayouts()) {
        const std::filesystem::path folder = output / std::string(layout.target);
        int number = 0;
        if (layout.target == "startup_fuzz") {
            writeSeed(folder, number++, input("", layout.files, database));
            writeSeed(folder, number++, input("", layout.files, withUserIni));
        } else if (layout.target == "index_fuzz") {
            // record, ATC key, name line, side-effect key
            for (const char* parameters : {"0 0 0 0", "1 1 1 1", "4 2 0 0", "3 3 1 1"})
                writeSeed(folder, number++, input(parameters, layout.files, database));
        } else if (layout.target == "ini_fuzz") {
            const std::string separator(kSegmentSeparator);
            writeSeed(folder, number++,
                      "[Rovanel Beallitasok]\r\nKgyTxtPath=C:\\kgy.txt\r\n\r\n[BetegAdatok]\r\nNev=\"Kiss "
                      "Anna\"\r\n" +
                          separator + "BetegAdatok" + separator + "Nev" + separator + "Nagy Béla");
            writeSeed(folder, number++,
                      "; comment\n[a]\nx = 1\n[b]\ny=2\n[A]\nz=3" + separator + "a" + separator + "z" +
                          separator + "4");
        }
    }
    return 0;
}
