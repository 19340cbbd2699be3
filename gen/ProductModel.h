// The generator's product model: the groups, substances, regulations and products one generation run
// builds before its writers turn them into the files of a database directory, and the run itself.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <map>
#include <set>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "gen/DatabaseGenerator.h"
#include "gen/GeneratorRandom.h"
#include "gen/Vocabulary.h"

namespace rovanel::generation
{

struct Group {
    std::string code;           // Rovanel form
    std::string international;  // as printed
    std::string name;           // Windows-1250
};

struct Substance {
    std::string international;
    std::string code;  // 8 characters
    std::string name;  // Windows-1250
    char anatomical = 0;
    int serials = 0;  // product codes handed out
};

enum class Kind { Medicine, Nutrition, Other };

struct Regulation {
    std::string code;
    bool separateBudget = false;
    bool increased = false;  // emelt (prefixed code) rather than kiemelt
    int rate = 100;          // per cent of the price the support covers
    std::string text;
};

struct Product {
    Kind kind = Kind::Medicine;
    std::vector<int> substances;  // [0] is the product's own ATC substance
    std::string code;
    std::string name;
    std::string sortKey;
    int form = 0;
    std::string strength;  // "5 mg", Windows-1250, lower case
    int packAmount = 0;
    std::string holder;
    int price = 0, support = 0;
    std::string supportLine;
    bool combination = false;
    bool deleted = false;  // TT flag
    std::vector<std::string> careful, avoid, contraindications, sideEffects;
    std::vector<std::string> terLines, indication, dosage, patient, contraText, poisoning, warnings,
        otherNames;
};

// Everything one generation run builds before it writes.
class Generator
{
public:
    explicit Generator(const GeneratorOptions& options)
        : m_random(options.seed ^ 0x526F76616E656CULL), m_options(options)
    {
    }
    bool build(std::string* error);
    bool write(const std::filesystem::path& directory, std::string* error);
    PlantedCases planted;

private:
    void buildCatalogues();
    int pickMedicineSubstance();
    void makeMedicine(Product& product, int substance);
    void makeNutrition(Product& product, int substance);
    void makeOther(Product& product, int substance);
    bool assignCode(Product& product);
    void makeUniqueName(Product& product, const std::string& stem, const std::string& tail);
    void makeTexts(Product& product);
    void makeSupportLine(Product& product, int ttt);
    std::string interactionCode(const Product& self);
    void plantCases();
    void sortAndIndex();
    std::string productBlock(const Product& product) const;
    std::string regulationTree() const;
    std::string ownCode(const Product& product, std::size_t i) const
    {
        return m_substances[static_cast<std::size_t>(product.substances[i])].code;
    }

    Random m_random;
    GeneratorOptions m_options;
    std::map<std::string, Group> m_groups;  // by Rovanel code: sorted order is the tree's pre-order
    std::vector<Substance> m_substances;
    std::vector<int> m_medicineSubstances, m_nutritionSubstances, m_otherSubstances;
    std::vector<long long> m_cumulativeWeights;
    std::vector<int> m_bigGroupSubstances;
    std::set<int> m_reserved;
    std::vector<Regulation> m_regulations;
    std::vector<Product> m_products;       // generation order
    std::vector<std::size_t> m_order;      // record number -> generation index
    std::vector<std::int32_t> m_recordOf;  // generation index -> record number
    std::set<std::string> m_names;
    std::vector<std::string> m_formAbbreviations;
    std::array<int, 6> m_plantedGeneration{};    // avoid pair, careful pair, contraindicated, long line
    std::array<std::string, 2> m_reservedNames;  // the 600- and 601-product ingredients

    // The writers, one file of gen/ each, called by write() in this order; each adds its files.
    [[nodiscard]] bool writeProductFiles(std::string* error);  // nevrend.dat, nevpos.dat, gy.ful
    void writeAtcFiles();        // atcnren2.dat, atcnrend.dat, atcnren5.dat, atcindin.dat, atcind.dat
    void writeCodeTableFiles();  // KOD.DAT
    void
    writeTableIndexFiles();  // ellindin/ellind/ellnrend/ellnren2.dat and mhindin/mhind/mhnrend/mhnren2.dat
    void writeIngredientFiles();  // harend2.dat, haindinf.dat, haind.dat
    void writeFormFiles();        // x.dat, xd.dat
    void writeRegulationFiles();  // rend.dat, rend2.ful
    void writeFixedFiles();       // MSG.DAT, zaras.inf, RV.INI
    void plantListCases();        // the planted cases found in the lists (gen/PlantedCases.cpp)
    void writeCounts();           // inf.dat, once the lists are counted

    std::vector<std::pair<std::string, std::string>> m_files;  // name, content
    std::vector<std::string> m_groupCodes;                     // ATC groups in use, in pre-order
    std::map<std::string, int> m_groupIndex;                   // code -> group (tree node) number
    std::vector<std::vector<std::int32_t>> m_atcLists, m_effectLists, m_ingredientLists;
    std::vector<std::string> m_ingredients;        // harend2.dat lines
    std::map<std::string, int> m_ingredientIndex;  // name -> line
};

// Shared by the writers (gen/IndexPairs.cpp).
// Directory and list files of one index pair from the record lists of its keys.
void indexPair(const std::vector<std::vector<std::int32_t>>& lists, bool sentinel, bool commaAfterEach,
               std::string& directory, std::string& list);
// Record lists of a code table: products whose section holds a code beginning with the table's code.
[[nodiscard]] std::vector<std::vector<std::int32_t>> codeLists(
    std::span<const CodeEntry> entries, const std::vector<const std::vector<std::string>*>& sections);
// A tree of table codes: groups (3 characters) at depth 0, leaves at depth 1.
[[nodiscard]] std::string codeTree(std::span<const CodeEntry> entries);

}  // namespace rovanel::generation
