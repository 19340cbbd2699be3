// The generator's prescription files: bno.tre (the Hungarian BNO tree), bnohr.dat (BNO rules per regulation
// point), tamttt.dat (title flags and keys per drug key), szvhr.dat (qualifications per point) and
// DsListT.txt (the dosage template). Written after the products, from what gy.ful and rend.dat hold, so the
// keys are the same as the support lines'. Planted cases for every outcome of the BNO check use the fixed
// keys below (docs/data-format.md, "Planted prescription cases").
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "gen/BnoBook.h"

namespace rovanel
{

// Regulation points planted in bnohr.dat (referenced by no product).
inline constexpr const char* kPlantedFreeKey = "EU901";            // free: admits E1190 and I10H0
inline constexpr const char* kPlantedFeeKey = "_EU902/a";          // 90 %: admits J4500 and I10H0
inline constexpr const char* kPlantedWildcardKey = "EU903";        // free: "XXXXX"
inline constexpr const char* kPlantedFeeWildcardKey = "&EU904/a";  // 70 %: "XXXXX"
inline constexpr const char* kPlantedRulelessKey = "EU905";        // on no line
// A code in the tree that no planted point admits.
inline constexpr const char* kPlantedOtherCode = "K2900";
// The qualification that szvhr.dat pairs with the planted fee key ("_EU902/a,00401;").
inline constexpr const char* kPlantedQualification = "00401";

// Drug keys planted in tamttt.dat (each line-initial, 9 digits, beginning with 9 as no ttt code does).
inline constexpr const char* kPlantedSimpleDrug = "900000001";     // free EU901, fee _EU902/a
inline constexpr const char* kPlantedListDrug = "900000002";       // free "EU905,EU901", fee "EU901,_EU902/a"
inline constexpr const char* kPlantedWildcardDrug = "900000003";   // free EU903 only
inline constexpr const char* kPlantedKeylessDrug = "900000004";    // both keys empty
inline constexpr const char* kPlantedAllTitlesDrug = "900000005";  // flags all '1'
inline constexpr const char* kPlantedUnprefixedFeeDrug = "900000006";  // fee key EU901 without a rate prefix
inline constexpr const char* kPlantedAbsentDrug = "900000009";         // no entry

// Writes the five files into `directory`, which already holds the generated gy.ful, nevpos.dat, KOD.DAT,
// inf.dat, nevrend.dat and rend.dat. False and a reason when a file cannot be written.
[[nodiscard]] bool writePrescriptionFiles(const std::filesystem::path& directory, std::uint64_t seed,
                                          std::string* error);

// The writers of the files, shared by the generator and the importer (Windows-1250, CR LF).
// bno.tre from BNO entries sorted by code: the 22 chapters, then each chapter's codes of 3 to 5 characters
// under their parents; codes outside every chapter are left out. `nodeCount` gets the number of lines.
[[nodiscard]] std::string bnoTreeText(std::span<const BnoBookEntry> entries,
                                      std::size_t* nodeCount = nullptr);
// Whether a code falls in one of the tree's chapters (the others are left out of the tree).
[[nodiscard]] bool inBnoChapter(std::string_view code);
// bnohr.dat: one "KEY CODE" line per (key, 5-character code) pair, in the given order.
[[nodiscard]] std::string bnoRuleText(const std::vector<std::pair<std::string, std::string>>& rules);
// szvhr.dat: one "KEY,QUALIFICATION;" line per pair, in the given order.
[[nodiscard]] std::string qualificationText(const std::vector<std::pair<std::string, std::string>>& pairs);
// tamttt.dat: one line per product of the database in `directory` (its gy.ful, nevpos.dat, inf.dat...),
// in record order: the ttt code, the Layout B flags from the support line and its fee and free keys.
[[nodiscard]] std::string titleFlagText(const std::filesystem::path& directory);

// The chapters of bno.tre and the depth rules, exposed for the database check: the number of nodes the
// tree of the vendored list has.
[[nodiscard]] std::size_t bnoTreeNodeCount();

}  // namespace rovanel
