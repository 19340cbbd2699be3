#include "db/TreeFile.h"

#include <algorithm>

#include "db/DataFile.h"
#include "db/Text.h"

namespace rovanel
{

std::vector<TreeNode> parseTreeText(std::string_view text)
{
    std::vector<TreeNode> nodes;
    forEachLine(text, [&](std::string_view line) {
        std::size_t tabs = 0;
        while (tabs < line.size() && line[tabs] == '\t') ++tabs;
        line.remove_prefix(tabs);
        const std::size_t end = line.find_last_not_of(" \t\r");
        line = end == std::string_view::npos ? std::string_view{} : line.substr(0, end + 1);
        int depth = static_cast<int>(std::min<std::size_t>(tabs, 1'000'000));
        if (nodes.empty())
            depth = 0;
        else if (depth > nodes.back().depth + 1)
            depth = nodes.back().depth + 1;
        nodes.push_back(TreeNode{depth, std::string(line)});
        return true;
    });
    return nodes;
}

std::optional<std::vector<TreeNode>> loadTreeFile(const std::filesystem::path& path)
{
    const auto content = readWholeFile(path);
    if (!content) return std::nullopt;
    return parseTreeText(*content);
}

}  // namespace rovanel
