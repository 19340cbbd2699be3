// The database generator behind `rvcli gen`: writes a complete, self-consistent synthetic data directory
// (every file of docs/data-format.md) with Hungarian-looking products, and plants the cases the tests
// and the windows need. The same options give byte-identical files on every platform.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "gen/DetailedListCases.h"

namespace rovanel
{

struct GeneratorOptions {
    int products = 10000;  // kMinimumProducts .. kMaximumProducts
    std::uint64_t seed = 1;
};

inline constexpr int kMinimumProducts = 50;
inline constexpr int kMaximumProducts = 40000;  // gy.ful offsets stay within 8 digits

// Where the planted cases ended up (record numbers, key numbers and codes as the files hold them, codes
// in Windows-1250). -1 (or an empty text) marks a case the database is too small to hold.
struct PlantedCases {
    // Counts of the database.
    int products = 0, medicines = 0, nutrition = 0, others = 0;
    int atcGroups = 0, contraindications = 0, sideEffects = 0, ingredients = 0, regulations = 0;

    // Two medicines whose avoid (#til) sections each hold a prefix of the other's own code.
    std::int32_t avoidFirst = -1, avoidSecond = -1;
    std::string avoidFirstCode, avoidSecondCode;  // the #til line of each that hits the other

    // A careful (#ov) finding: a #ov line of carefulFirst is a prefix of carefulSecond's own code; both
    // have no other careful or avoid line, so the pair has exactly this one finding.
    std::int32_t carefulFirst = -1, carefulSecond = -1;
    std::string carefulCode;

    // A medicine with the contraindication "Terhesség" (table 3 entry contraindicationIndex), and the
    // ATC node of its chemical subgroup (6 characters), where a mode-2 listing excludes it.
    std::int32_t contraindicated = -1, contraindicationIndex = -1;
    std::string contraindicationCode;
    std::int32_t contraindicatedGroupNode = -1;

    // A medicine whose careful section holds an 11-character line (the interaction check stops on it).
    std::int32_t longCodeLineDrug = -1;
    std::string longCodeLine;

    // Size-based cases (-1 unless more than 600 products, or the exact count, are reached).
    std::int32_t largeLevel1Node = -1, largeLevel2Node = -1;  // ATC nodes with more than 600 products
    std::string largeLevel1Code, largeLevel2Code;
    int largeLevel1Products = 0, largeLevel2Products = 0;
    std::int32_t commonSideEffect = -1;  // table 4 entry with more than 600 products
    std::string commonSideEffectCode;
    int commonSideEffectProducts = 0;
    std::int32_t ingredient600 = -1, ingredient601 = -1;  // harend2.dat lines (from 5,000 products on)
    std::string ingredient600Name, ingredient601Name;

    // The detailed list's support lines and TT group (gen/DetailedListCases.h).
    DetailedListCases detailed;
};

// Writes the database into `directory` (created when missing; existing files of the same names are
// replaced). Nothing and a reason in `error` when the options are out of range or a file cannot be
// written.
[[nodiscard]] std::optional<PlantedCases> generateDatabase(const std::filesystem::path& directory,
                                                           const GeneratorOptions& options,
                                                           std::string* error = nullptr);

}  // namespace rovanel
