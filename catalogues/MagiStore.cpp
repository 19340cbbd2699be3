#include "catalogues/MagiStore.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <system_error>

#include "app/IniFile.h"
#include "app/UserPaths.h"
#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/Text.h"

namespace rovanel
{
namespace
{

Message refusal(std::string_view utf8Text)
{
    return Message{utf8ToCp1250(utf8Text), utf8ToCp1250("Saját Magi receptek"), MessageIcon::Warning, false};
}

// A path as the file system wants it: the Windows-1250 name in UTF-8.
std::filesystem::path nativeName(std::string_view cp1250)
{
    const std::string utf8 = cp1250ToUtf8(cp1250);
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string shown(const std::filesystem::path& path)
{
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

bool reservedOnWindows(std::string_view name)
{
    // The device names are reserved with any extension too ("NUL.txt").
    std::string stem(name.substr(0, name.find('.')));
    while (!stem.empty() && stem.back() == ' ') stem.pop_back();
    for (char& c : stem) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    static const std::array<std::string_view, 4> plain = {"CON", "PRN", "AUX", "NUL"};
    if (std::find(plain.begin(), plain.end(), stem) != plain.end()) return true;
    return stem.size() == 4 && (stem.starts_with("COM") || stem.starts_with("LPT")) && stem[3] >= '1' &&
           stem[3] <= '9';
}

}  // namespace

std::filesystem::path magiDirectory(const std::filesystem::path& dataDirectory)
{
    std::string update =
        readProfileString(settingsFilePath(dataDirectory), kSettingsSection, "PathToUpdate", "");
    while (!update.empty() && (update.back() == '\\' || update.back() == '/')) update.pop_back();
    if (update.empty()) return userConfigDirectory() / "magi";
    std::replace(update.begin(), update.end(), '\\', '/');
    const std::filesystem::path base = nativeName(update);
    return (base.is_absolute() ? base : dataDirectory / base) / "magi";
}

std::optional<Message> checkRecipeName(std::string_view name)
{
    if (name.empty()) return refusal("Adja meg a recept nevét!");
    for (const char c : name) {
        if (static_cast<unsigned char>(c) < 0x20)
            return refusal("A recept neve nem tartalmazhat vezérlőkaraktert.");
        if (std::string_view("\\/:*?\"<>|").find(c) != std::string_view::npos)
            return refusal(
                "A recept neve nem tartalmazhatja a következő karakterek egyikét: \\ / : * ? \" < > |");
    }
    if (name.back() == '.' || name.back() == ' ')
        return refusal("A recept neve nem végződhet ponttal vagy szóközzel.");
    if (name.size() > kRecipeNameLimit) return refusal("A recept neve legfeljebb 120 karakter lehet.");
    if (reservedOnWindows(name))
        return refusal("A recept neve nem lehet CON, PRN, AUX, NUL, COM1-COM9 vagy LPT1-LPT9.");
    std::string lower(name);
    for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (lower == "magilist.txt" || lower.ends_with(".tmp~"))
        return refusal("A recept neve nem lehet MagiList.txt, és nem végződhet .tmp~ véggel.");
    return std::nullopt;
}

std::vector<std::string> parseRecipeList(std::string_view content)
{
    std::vector<std::string> names;
    forEachLine(content, [&](std::string_view line) {
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        names.emplace_back(line);
        return true;
    });
    return names;
}

std::optional<Message> MagiStore::open()
{
    m_names.clear();
    const std::filesystem::path list = m_directory / "MagiList.txt";
    std::error_code error;
    if (std::filesystem::exists(list, error)) {
        const auto content = readWholeFile(list);
        if (!content) return refusal("A saját receptek listája nem olvasható: " + shown(list));
        m_names = parseRecipeList(*content);
        return std::nullopt;
    }
    std::filesystem::create_directories(m_directory, error);
    if (!std::filesystem::is_directory(m_directory, error))
        return refusal("A saját receptek mappája nem hozható létre: " + shown(m_directory));
    return saveList({});
}

std::optional<std::string> MagiStore::recipe(std::string_view name) const
{
    if (checkRecipeName(name)) return std::nullopt;
    return readWholeFile(recipePath(name));
}

std::optional<Message> MagiStore::add(std::string_view name, std::string_view text)
{
    if (auto refused = checkRecipeName(name)) return refused;
    std::vector<std::string> names = m_names;
    names.emplace_back(name);
    if (auto failed = saveList(names)) return failed;
    m_names = std::move(names);
    return saveRecipe(name, text);
}

std::optional<Message> MagiStore::modify(std::string_view name, std::string_view text)
{
    if (auto refused = checkRecipeName(name)) return refused;
    return saveRecipe(name, text);
}

std::optional<Message> MagiStore::removeLine(int index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= m_names.size()) return std::nullopt;
    std::vector<std::string> names = m_names;
    names.erase(names.begin() + index);
    if (auto failed = saveList(names)) return failed;
    m_names = std::move(names);
    return std::nullopt;
}

std::optional<Message> MagiStore::removeFile(std::string_view name)
{
    if (checkRecipeName(name)) return std::nullopt;
    std::error_code error;
    std::filesystem::remove(recipePath(name), error);
    if (error) return refusal("A recept fájlja nem törölhető: " + shown(recipePath(name)));
    return std::nullopt;
}

std::optional<Message> MagiStore::saveList(const std::vector<std::string>& names) const
{
    std::string content;
    for (const std::string& name : names) content += name + "\r\n";
    const std::filesystem::path list = m_directory / "MagiList.txt";
    std::error_code error;
    if (!std::filesystem::is_directory(m_directory, error) || !writeFileAtomically(list, content))
        return refusal("A saját receptek listája nem menthető: " + shown(list));
    return std::nullopt;
}

std::optional<Message> MagiStore::saveRecipe(std::string_view name, std::string_view text) const
{
    const std::filesystem::path path = recipePath(name);
    std::error_code error;
    if (!std::filesystem::is_directory(m_directory, error) || !writeFileAtomically(path, text))
        return refusal("A recept nem menthető: " + shown(path));
    return std::nullopt;
}

std::filesystem::path MagiStore::recipePath(std::string_view name) const
{
    return m_directory / nativeName(name);
}

}  // namespace rovanel
