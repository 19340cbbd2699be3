// The physician's own magistral recipes: "MagiList.txt" (the names, one per line, in list order) and one
// file per recipe named exactly as the recipe, all in one folder. Every write is atomic (a temporary
// file beside the old one, flushed, renamed over it); a name that cannot be a file name on Windows or on
// Linux is refused before anything is written. Names and texts are Windows-1250.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/Message.h"

namespace rovanel
{

// The folder of the recipes: "PathToUpdate" of the data directory's RV.INI followed by "magi"; with no
// "PathToUpdate", "magi" in the user's own settings folder (never the database folder).
[[nodiscard]] std::filesystem::path magiDirectory(const std::filesystem::path& dataDirectory);

// The reason `name` cannot name a recipe file, or nothing when it can.
[[nodiscard]] std::optional<Message> checkRecipeName(std::string_view name);

// The names of a MagiList.txt: one per line, CR LF or LF, a last line without its line end counted.
[[nodiscard]] std::vector<std::string> parseRecipeList(std::string_view content);

class MagiStore
{
public:
    explicit MagiStore(std::filesystem::path directory) : m_directory(std::move(directory)) {}

    // Reads MagiList.txt; when it does not exist, creates the folder and an empty list. A message when
    // the folder or the list cannot be made (the list is then empty and nothing is lost).
    [[nodiscard]] std::optional<Message> open();

    [[nodiscard]] const std::vector<std::string>& names() const { return m_names; }
    [[nodiscard]] const std::filesystem::path& directory() const { return m_directory; }

    // The recipe file of `name` line by line, or nothing when the name is refused or the file is missing.
    [[nodiscard]] std::optional<std::string> recipe(std::string_view name) const;

    // Appends `name` (a name already listed is listed twice and shares its one file), saves the list,
    // then saves `text` as the recipe. A message, and nothing changed, when the name is refused or the
    // list cannot be written; a message when the recipe cannot be written (the list then holds the name).
    [[nodiscard]] std::optional<Message> add(std::string_view name, std::string_view text);

    // Saves `text` as the recipe `name`; the list is not touched.
    [[nodiscard]] std::optional<Message> modify(std::string_view name, std::string_view text);

    // Deleting is two steps, so that the file deleted is the one of the text the name box shows after
    // the line is gone (normally the deleted name; kept on purpose, see MagiStore_test):
    // deletes list line `index` and saves the list; nothing happens for an index outside the list.
    [[nodiscard]] std::optional<Message> removeLine(int index);
    // Deletes the recipe file of `name`; a refused name deletes nothing.
    [[nodiscard]] std::optional<Message> removeFile(std::string_view name);

private:
    [[nodiscard]] std::optional<Message> saveList(const std::vector<std::string>& names) const;
    [[nodiscard]] std::optional<Message> saveRecipe(std::string_view name, std::string_view text) const;
    [[nodiscard]] std::filesystem::path recipePath(std::string_view name) const;

    std::filesystem::path m_directory;
    std::vector<std::string> m_names;
};

inline constexpr std::size_t kRecipeNameLimit = 120;

}  // namespace rovanel
