// What the prescription window takes from a package of the drug database: its name, product code and ttt
// code, its days per package, its Layout A title flags, its regulation-point keys and designation, and its
// specialist-recommendation flag. All of it comes from the package's gy.ful block (support line, see the
// format docs) and rend.dat; nothing is stored twice.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "rx/BnoRules.h"

namespace rovanel
{

struct StartupTables;

struct PackageData {
    std::int32_t record = -1;
    std::string productCode;     // line 1 of the block
    std::string name;            // nevrend.dat
    std::string ttt;             // support field 11: the drug's key into tamttt.dat
    float daysPerPackage = 0;    // support field 1, the daily doses of the package; 0 = unknown
    std::string titleFlags;      // Layout A, 11 characters of '0'/'1'
    RegulationKeys keys;         // free: highlighted (kiemelt) points; fee-paying: increased (emelt) points
    std::string designation;     // "90%  EU13/b": rate in 5 characters, then the point (first support)
    std::string specialistFlag;  // "1" when the first point's text allows a specialist's recommendation
};

// Layout A flags from the fields of a support line: position 3 public care (field 8), 6 HM and 8
// accident at work (a normative support category, field 5), 9 a highlighted and 10 an increased
// indication-bound support (field 6); every other position '0'.
[[nodiscard]] std::string layoutAFlags(std::string_view categories, std::string_view publicCare,
                                       std::string_view supports);

// The regulation designation of an indication-bound support code: "100% EU10", "90%  EU13/b".
[[nodiscard]] std::string regulationDesignation(std::string_view supportCode);

// The data of package `record`; nothing when the record has no readable block.
[[nodiscard]] std::optional<PackageData> packageData(const StartupTables& tables,
                                                     const std::filesystem::path& dataDirectory,
                                                     std::int32_t record);

}  // namespace rovanel
