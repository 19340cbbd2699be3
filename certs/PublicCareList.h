// The public-care list (közgyógy lista): the products a physician collects, one by one from the detailed
// list, for a patient's public-care certificate. A plain text file, Windows-1250, one product per line:
//
//     ATC;ttt;name and packaging;form;active ingredient CR LF
//
// (docs/data-format.md 9.6). Lines are only ever appended; the whole file is deleted to empty the list.
// The detailed list appends (KgyAdd); the certificate window reads.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/TreeFile.h"

namespace rovanel
{

class TextList;

// One line of the list. An empty field is written as an empty field; nothing is escaped, so a ";"
// inside a field shifts the fields of that line when it is read back.
struct PublicCareEntry {
    std::string atcCode;     // the 8-character ATC code
    std::string ttt;         // the product code used on prescriptions
    std::string name;        // name and packaging
    std::string form;        // pharmaceutical form
    std::string ingredient;  // the ATC group's tree text before its first "(" (its blank included)
    friend bool operator==(const PublicCareEntry&, const PublicCareEntry&) = default;
};

// The list file: "KgyTxtPath" of the data directory's RV.INI. A relative path, or an empty setting
// ("kgy.txt"), lies in the user's own folder (userConfigDirectory), never in the data directory.
[[nodiscard]] std::filesystem::path publicCareListPath(const std::filesystem::path& dataDirectory);

// The line of an entry, CR LF included.
[[nodiscard]] std::string publicCareLine(const PublicCareEntry& entry);

// Appends one line. The file is rewritten atomically with the new line after the old ones, so a failed
// write loses no earlier line. The reason (Windows-1250) when the write is refused.
[[nodiscard]] std::optional<std::string> appendPublicCareEntry(const std::filesystem::path& file,
                                                               const PublicCareEntry& entry);

// Reading the list: parsePublicCareList and readPublicCareList (certs/PublicCareCertificate.h).

// The active-ingredient field for ATC group `atcCode`: the text of the tree node whose position holds
// that code in the ATC code table, cut at its first "(" (the whole text when it has none); empty when
// no node does.
[[nodiscard]] std::string publicCareIngredient(const std::vector<TreeNode>& tree, const TextList& groupCodes,
                                               std::string_view atcCode);

}  // namespace rovanel
