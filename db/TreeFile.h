// Tab-indented tree text (atcnren2.dat, ellnren2.dat, mhnren2.dat, rend2.ful): one node per line, the
// number of leading tabs is the depth. Nodes come out in file order, which is the tree's pre-order, so a
// node's absolute index is its line number.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rovanel
{

struct TreeNode {
    int depth = 0;
    std::string text;  // Windows-1250, without the tabs and the line end
    friend bool operator==(const TreeNode&, const TreeNode&) = default;
};

// Every line is a node, so indexes never shift: a blank line is a node with empty text. Bad indentation
// has a defined result: the first node has depth 0 whatever its tabs, and a node more than one level
// deeper than the one before it is taken as its child (depth = previous + 1). Trailing blanks, tabs and
// CRs are removed; leading blanks are kept as text.
[[nodiscard]] std::vector<TreeNode> parseTreeText(std::string_view text);

// The nodes of a tree file, or nothing when it cannot be read.
[[nodiscard]] std::optional<std::vector<TreeNode>> loadTreeFile(const std::filesystem::path& path);

}  // namespace rovanel
