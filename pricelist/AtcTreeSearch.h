// The detailed list's ATC tree searches. The tree's node i stands for slot i of the ATC code table, so
// every search answers with a node number that is also a slot.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "db/TreeFile.h"

namespace rovanel
{

class TextList;

// The first node from `from` on, among the first `limit` nodes (the number of ATC codes), whose
// upper-cased text contains the upper-cased `text`; -1 when none does.
[[nodiscard]] int findAtcText(const std::vector<TreeNode>& tree, std::size_t limit, std::size_t from,
                              std::string_view text);

// The slot of the code a physician typed ("c08ca01", "C08CA-01", "N"), found by exact comparison of
// its upper-cased stored form; -1 when the table does not hold it.
[[nodiscard]] int findAtcCode(const TextList& groupCodes, std::string_view typed);

}  // namespace rovanel
