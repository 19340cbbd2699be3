// The BNO code tree bno.tre: a tab-indented tree of chapters and 3-, 4- and 5-character codes, node text
// "CODE name". Finding a prescription's code in it, and the text search of the BNO browser.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

#include "db/TreeFile.h"

namespace rovanel
{

// The nodes of bno.tre in tree order (nothing when the file cannot be read).
[[nodiscard]] std::optional<std::vector<TreeNode>> loadBnoTree(const std::filesystem::path& dataDirectory);

// True when a node's text is `code` itself or begins with `code` and a blank. The blank keeps a code from
// matching a longer code ("I109" is not in "I1090 ...") or a chapter title.
[[nodiscard]] bool nodeHoldsCode(std::string_view nodeText, std::string_view code);

// Index of the first node, in tree order, that holds `code`; nothing when none does.
[[nodiscard]] std::optional<std::size_t> findBnoCode(const std::vector<TreeNode>& nodes,
                                                     std::string_view code);

// The search position the BNO browser and the prescription window's tree search share: the index, in tree
// order, of the node where the last hit stood.
struct BnoSearchPosition {
    std::size_t counter = 0;
};
// One process-wide position, as both windows' "next" buttons use it.
[[nodiscard]] BnoSearchPosition& sharedBnoSearchPosition();

// Whether `text` occurs in `nodeText`; with `ignoreCase` both are upper-cased first (Windows-1250 letters,
// accented ones included).
[[nodiscard]] bool bnoNodeMatches(std::string_view nodeText, std::string_view text, bool ignoreCase);

// Tree mode: the first hit from the first node (the position is set to it), or nothing.
[[nodiscard]] std::optional<std::size_t> bnoSearchFirst(const std::vector<TreeNode>& nodes,
                                                        std::string_view text, bool ignoreCase,
                                                        BnoSearchPosition& position);
// Tree mode, "next": the next hit after the position; nothing once the tree ends (silently).
[[nodiscard]] std::optional<std::size_t> bnoSearchNext(const std::vector<TreeNode>& nodes,
                                                       std::string_view text, bool ignoreCase,
                                                       BnoSearchPosition& position);
// List mode: every hit, in tree order.
[[nodiscard]] std::vector<std::size_t> bnoSearchAll(const std::vector<TreeNode>& nodes, std::string_view text,
                                                    bool ignoreCase);

}  // namespace rovanel
