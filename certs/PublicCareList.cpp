#include "certs/PublicCareList.h"

#include <algorithm>
#include <system_error>

#include "app/IniFile.h"
#include "app/UserPaths.h"
#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "db/TextList.h"

namespace rovanel
{

namespace
{

constexpr const char* kDefaultFileName = "kgy.txt";

}  // namespace

std::filesystem::path publicCareListPath(const std::filesystem::path& dataDirectory)
{
    const std::filesystem::path setting(publicCareTextPath(dataDirectory));
    if (setting.empty()) return userConfigDirectory() / kDefaultFileName;
    if (setting.is_relative()) return userConfigDirectory() / setting;
    return setting;
}

std::string publicCareLine(const PublicCareEntry& entry)
{
    return entry.atcCode + ";" + entry.ttt + ";" + entry.name + ";" + entry.form + ";" + entry.ingredient +
           "\r\n";
}

std::optional<std::string> appendPublicCareEntry(const std::filesystem::path& file,
                                                 const PublicCareEntry& entry)
{
    std::string content;
    std::error_code error;
    if (std::filesystem::exists(file, error)) {
        auto old = readWholeFile(file);
        if (!old) return utf8ToCp1250("A közgyógy lista nem olvasható: ") + file.string();
        content = std::move(*old);
        // A last line without its line end still ends before the new one.
        if (!content.empty() && content.back() != '\n') content += "\r\n";
    }
    content += publicCareLine(entry);
    if (!writeFileAtomically(file, content))
        return utf8ToCp1250("A közgyógy lista nem írható: ") + file.string();
    return std::nullopt;
}

std::string publicCareIngredient(const std::vector<TreeNode>& tree, const TextList& groupCodes,
                                 std::string_view atcCode)
{
    const std::size_t nodes = std::min(tree.size(), groupCodes.size());
    for (std::size_t i = 0; i < nodes; ++i) {
        if (groupCodes[i] != atcCode) continue;
        const std::string& text = tree[i].text;
        return text.substr(0, std::min(text.find('('), text.size()));
    }
    return {};
}

}  // namespace rovanel
