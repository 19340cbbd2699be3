#include "db/RecordLayout.h"
#include "gen/ProductModel.h"

namespace rovanel::generation
{

void indexPair(const std::vector<std::vector<std::int32_t>>& lists, bool sentinel, bool commaAfterEach,
               std::string& directory, std::string& list)
{
    for (const auto& records : lists) {
        const std::size_t offset = records.empty() ? 0 : list.size();
        directory += encodeDirectoryRecord(
            {static_cast<std::int64_t>(offset), static_cast<std::int32_t>(records.size())});
        for (std::int32_t r : records) list += encodeListEntry(r, commaAfterEach);
    }
    if (sentinel) directory += encodeDirectoryRecord({0, 0});
}

std::string codeTree(std::span<const CodeEntry> entries)
{
    std::string tree;
    for (const CodeEntry& entry : entries)
        tree += std::string(std::string_view(entry.code).size() > 3 ? "\t" : "") + cp(entry.name) + "\r\n";
    return tree;
}

std::vector<std::vector<std::int32_t>> codeLists(std::span<const CodeEntry> entries,
                                                 const std::vector<const std::vector<std::string>*>& sections)
{
    std::vector<std::vector<std::int32_t>> lists(entries.size());
    for (std::size_t k = 0; k < entries.size(); ++k) {
        const std::string_view key = entries[k].code;
        for (std::size_t r = 0; r < sections.size(); ++r)
            for (const std::string& code : *sections[r])
                if (code.starts_with(key)) {
                    lists[k].push_back(static_cast<std::int32_t>(r));
                    break;
                }
    }
    return lists;
}

}  // namespace rovanel::generation
