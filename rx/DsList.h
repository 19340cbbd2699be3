// The dosage (D.S.) lists: DsListT.txt, the template delivered with the database, and DsList.txt, the
// user's own list, one dosage text a line. The user's list is made from the template once and never
// overwritten by it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "db/Message.h"

namespace rovanel
{

// The user's list: "DsList.txt" in the user's settings folder (per-user data never goes into the database
// folder, which a database update replaces).
[[nodiscard]] std::filesystem::path userDosageListPath();

// Copies the template of `dataDirectory` to `userList` unless that file exists, then reads the user's list
// (CR LF or LF lines, empty lines left out, each cut at 255 bytes). No file gives an empty list.
[[nodiscard]] std::vector<std::string> prepareDosageList(const std::filesystem::path& dataDirectory,
                                                         const std::filesystem::path& userList);

// Writes the items, one a line (CR LF), atomically; the message says why when the file cannot be written.
// Line breaks inside an item become blanks.
[[nodiscard]] std::optional<Message> saveDosageList(const std::filesystem::path& userList,
                                                    const std::vector<std::string>& items);

// The dosage memo for a chosen or edited item: "D.S.:" and the item, two lines.
[[nodiscard]] std::string dosageText(const std::string& item);

}  // namespace rovanel
