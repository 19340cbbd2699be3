// Writes the seed corpus of every fuzz target: rovanel_fuzz_corpus OUTPUT-DIRECTORY makes one folder per
// target holding inputs built from a small valid database, so the fuzzers start from files that reach
// deep into each reader.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "app/RegistrySettings.h"
#include "db/DataFile.h"
#include "fuzz/FuzzLayouts.h"
#include "gen/DatabaseGenerator.h"
#include "tests/fixtures/Databases.h"

using namespace rovanel;
using namespace rovanel::fuzzing;

namespace
{

// Seeds stay small so that the fuzzers run fast: each file is cut to this many bytes (gy.ful of the
// smallest generated database stays whole).
constexpr std::size_t kFileLimit = 48 * 1024;
constexpr std::size_t kTreeLimit = 8 * 1024;

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

// The khrun_fuzz parameter line: mode, ATC node, the drugs taken and the contraindications chosen.
std::string selection(int mode, std::int64_t node, const std::vector<std::int32_t>& drugs,
                      const std::vector<std::int32_t>& contraindications)
{
    std::string line = std::to_string(mode) + " " + std::to_string(node) + " " +
                       std::to_string(drugs.size()) + " " + std::to_string(contraindications.size());
    for (std::size_t i = 0; i < 21; ++i) line += " " + std::to_string(i < drugs.size() ? drugs[i] : -1);
    for (const std::int32_t c : contraindications) line += " " + std::to_string(c);
    return line;
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
    testing::ScratchDirectory generated;
    std::string error;
    const auto planted = generateDatabase(generated.path(), GeneratorOptions{kMinimumProducts, 1}, &error);
    if (!planted) {
        std::fprintf(stderr, "rovanel_fuzz_corpus: %s\n", error.c_str());
        return 1;
    }
    const std::vector<Database> databases = {readDatabase(tiny.path()), readDatabase(generated.path())};
    const PlantedCases& cases = *planted;
    const auto text = [](std::int64_t value) { return std::to_string(value); };
    // The parameter lines of the targets that read the database's files as they are.
    const std::map<std::string_view, std::vector<std::string>> parameterLines = {
        {"startup_fuzz", {""}},
        // record, ATC key, name line, side-effect key
        {"index_fuzz", {"0 0 0 0", "1 1 1 1", "4 2 0 0", "3 3 1 1", "40 150 20 30"}},
        {"khrun_fuzz",
         {selection(1, 0, {0, 1, 2}, {}), selection(2, 0, {}, {}),
          selection(1, 0, {cases.avoidFirst, cases.avoidSecond}, {}),
          selection(1, 0, {cases.carefulFirst, cases.carefulSecond}, {cases.contraindicationIndex}),
          selection(1, 0, {cases.contraindicated, cases.longCodeLineDrug}, {}),
          selection(2, cases.contraindicatedGroupNode, {cases.carefulFirst}, {cases.contraindicationIndex}),
          selection(2, cases.contraindicatedGroupNode, {}, {})}},
        // side effect, ingredient, SzedettGyCount, SzedettGy
        {"search_fuzz", {"0 0 0", "1 1 2 0 1", "5 3 3 1 2 3", "-1 -1 0"}},
        // record, level length, order, hide deleted
        {"description_fuzz",
         {"0 8 0 0", "1 4 1 1", text(cases.contraindicated) + " 6 0 0", text(cases.avoidFirst) + " 1 1 0",
          text(cases.medicines) + " 3 0 1", "-1 8 0 0"}},
        // ATC node, listing mode, hide TT, selected row, record
        {"detailed_fuzz",
         {"0 1 0 0 0", "1 2 1 1 1", "3 3 0 0 2",
          text(cases.contraindicatedGroupNode) + " 1 0 0 " + text(cases.medicines),
          text(cases.atcGroups) + " 4 1 -1 -1"}},
        // ATC group, fills
        {"certs_fuzz", {"0 1", "2 4", text(cases.atcGroups - 1) + " 10", "-1 2"}},
        {"aids_fuzz", {"0 1", "2 5", "-1 3", "7 100000"}},
        {"fono_fuzz", {"0", "1", "5", "-1"}},
    };

    for (const FuzzLayout& layout : fuzzLayouts()) {
        const std::filesystem::path folder = output / std::string(layout.target);
        const std::string separator(kSegmentSeparator);
        int number = 0;
        for (Database database : databases) {
            // A public-care list and a patient data file beside the database.
            database["kgy.txt"] = "C08CA-01;210751477;NAME;3;amlodipin \r\nA;;B\r\n;;;;\r\n";
            database["beteg.ini"] =
                "[BetegAdatok]\r\nBeteg neve=Kiss \xC9va\r\nOrvosNeve=Dr. Szab\xF3\r\n"
                "[OrvosAdatok]\r\norvnev=Dr. Nagy\r\n";
            if (const auto lines = parameterLines.find(layout.target); lines != parameterLines.end())
                for (const std::string& parameters : lines->second)
                    writeSeed(folder, number++, input(parameters, layout.files, database));
            if (layout.target == "startup_fuzz") {
                Database withUserIni = database;
                withUserIni["RV.INI"] = "[Rovanel Beallitasok]\r\nNapiKezTeljesArbol=IGEN\r\n";
                writeSeed(folder, number++, input("", layout.files, withUserIni));
            } else if (layout.target == "registry_fuzz") {
                // Made by the store itself: the defaults, one setting changed by hand.
                testing::ScratchDirectory folderOfStore;
                const auto store = openRegistryFile(folderOfStore.path() / "registry.ini");
                (void)EnsureRegistryDefaults(*store);
                std::string file = folderOfStore.read("registry.ini");
                writeSeed(folder, number++, separator + file + separator + "D:\\Adatok\\rv%20");
                writeSeed(folder, number++, separator + file.substr(0, file.size() / 2));
                writeSeed(folder, number++, separator + "[Software\\Rovanel]\r\nx=dword:12\r\n");
                break;  // one database is enough: the store does not read it
            } else if (layout.target == "treefile_fuzz") {
                for (const char* tree : {"atcnren2.dat", "ellnren2.dat", "mhnren2.dat", "rend2.ful"})
                    if (const auto found = database.find(tree); found != database.end())
                        writeSeed(folder, number++, found->second.substr(0, kTreeLimit));
            } else if (layout.target == "prescription_fuzz") {
                if (const auto tree = database.find("bno.tre"); tree != database.end())
                    tree->second = tree->second.substr(0, kTreeLimit);
                for (const char* parameters : {"0 3 30", "1 3 15", "0 2 0", "1 0 22.5"})
                    for (const char* probe : {"EU901\n_EU902/a\nE1190\n900000001\nszív\n30\n00401,tüdő;\n",
                                              "EU905,EU901\nEU901,_EU902/a\nJ4500\n900000002\nI10\n120\n;\n",
                                              "EU903\n\nK2900\n900000006\nXX\nx2\n\n"})
                        writeSeed(folder, number++,
                                  input(parameters, layout.files, database) + separator + probe);
            } else if (layout.target == "magi_fuzz") {
                writeSeed(folder, number++,
                          separator +
                              "Ken\xF5"
                              "cs\r\nOldat 5%\r\n" +
                              separator +
                              "Ken\xF5"
                              "cs");
                writeSeed(folder, number++, separator + "A\nB" + separator + "NUL.txt");
                break;
            } else if (layout.target == "ini_fuzz") {
                if (const auto found = database.find("RV.INI"); found != database.end())
                    writeSeed(folder, number++,
                              found->second + separator + "Rovanel Beallitasok" + separator +
                                  "NapiKezTeljesArbol" + separator + "IGEN");
            }
        }
        if (layout.target == "update_fuzz") {
            const std::string zaras = "20261101\r\n2026.11.01\r\n";
            writeSeed(folder, number++,
                      separator + "20261201\r\n2026.12.01\r\nwww.rovanel.hu\r\n" + separator + zaras +
                          separator + "20261201\r\n2026.12.01\r\n");
            writeSeed(folder, number++, separator + "20261201" + separator + zaras + separator + zaras);
            writeSeed(
                folder, number++,
                separator + std::string(150, 'x') + "\r\n\r\n" + separator + "a\rb" + separator + "a\n");
        }
        if (layout.target == "neaktable_fuzz") {
            writeSeed(folder, number++,
                      std::string("\x00") +
                          "IDOSZAK,TTT,NEV,DOBOZ\n\"202501\",\"210712376\",\"ABASAGLAR \"\"100\"\"\",77.5\n"
                          "\"202501\",\"210342333\",\"AMLODIPIN, SANDOZ\",-1\n");
            writeSeed(folder, number++,
                      std::string("\x01") +
                          "ATC\tMEGNEV\tANGOL\r\n\"C08CA01\"\t\"amlodipin\"\t\"amlodipine\"\r\n"
                          "\"A\"\t\"T\xE1pcsatorna\"\t\r\n");
            writeSeed(folder, number++,
                      std::string("\x02") +
                          "\xEF\xBB\xBFID;EUPONT_ID;NDX;LEIRAS\n1;99;1;\"els\xC5\x91\nsor_x000d_\"\n"
                          "2;99;2;m\xC3\xA1sodik\n");
        }
        if (layout.target == "ini_fuzz") {
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
