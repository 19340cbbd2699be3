#include "pricelist/AtcTreeSearch.h"

#include <algorithm>

#include "db/AtcCode.h"
#include "db/HungarianCollation.h"
#include "db/TextList.h"

namespace rovanel
{

int findAtcText(const std::vector<TreeNode>& tree, std::size_t limit, std::size_t from, std::string_view text)
{
    const std::string wanted = upperCaseCp1250(text);
    const std::size_t end = std::min(limit, tree.size());
    for (std::size_t i = from; i < end; ++i)
        if (upperCaseCp1250(tree[i].text).find(wanted) != std::string::npos) return static_cast<int>(i);
    return -1;
}

int findAtcCode(const TextList& groupCodes, std::string_view typed)
{
    const std::string code = atcFromInternational(typed);
    for (std::size_t i = 0; i < groupCodes.size(); ++i)
        if (groupCodes[i] == code) return static_cast<int>(i);
    return -1;
}

}  // namespace rovanel
