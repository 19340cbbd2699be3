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

constexpr std::size_t kLineLimit = 511;  // a 512-byte read
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

std::vector<PublicCareEntry> parsePublicCareList(std::string_view content)
{
    std::vector<PublicCareEntry> entries;
    std::size_t start = 0;
    while (start < content.size()) {
        std::size_t end = content.find('\n', start);
        if (end == std::string_view::npos) end = content.size();
        std::string_view line = content.substr(start, std::min(end - start, kLineLimit));
        start = end + 1;
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);  // text mode
        std::string* fields[5] = {nullptr, nullptr, nullptr, nullptr, nullptr};
        PublicCareEntry entry;
        fields[0] = &entry.atcCode;
        fields[1] = &entry.ttt;
        fields[2] = &entry.name;
        fields[3] = &entry.form;
        fields[4] = &entry.ingredient;
        std::size_t position = 0;
        bool any = false;
        for (int i = 0; i < 5; ++i) {
            const std::string_view delimiters = i < 4 ? ";" : "\r";
            while (position < line.size() && delimiters.find(line[position]) != std::string_view::npos)
                ++position;
            if (position >= line.size()) break;
            std::size_t stop = line.find_first_of(delimiters, position);
            if (stop == std::string_view::npos) stop = line.size();
            *fields[i] = std::string(line.substr(position, stop - position));
            any = true;
            position = stop < line.size() ? stop + 1 : stop;
        }
        if (any) entries.push_back(std::move(entry));
    }
    return entries;
}

std::optional<std::vector<PublicCareEntry>> readPublicCareList(const std::filesystem::path& file)
{
    const auto content = readWholeFile(file);
    if (!content) return std::nullopt;
    return parsePublicCareList(*content);
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
