#include "rx/BnoTree.h"

#include <string>

#include "db/DataFile.h"
#include "db/HungarianCollation.h"
#include "db/Text.h"

namespace rovanel
{

namespace
{

// The walk of both modes from node `from`, with the search text folded once.
class Walk
{
public:
    Walk(std::string_view text, bool ignoreCase)
        : m_ignoreCase(ignoreCase), m_text(ignoreCase ? upperCaseCp1250(text) : std::string(text))
    {
    }
    [[nodiscard]] bool hit(const TreeNode& node) const
    {
        if (!m_ignoreCase) return contains(node.text, m_text);
        return contains(upperCaseCp1250(node.text), m_text);
    }
    [[nodiscard]] std::optional<std::size_t> firstFrom(const std::vector<TreeNode>& nodes, std::size_t from,
                                                       BnoSearchPosition& position) const
    {
        for (std::size_t i = from; i < nodes.size(); ++i, ++position.counter)
            if (hit(nodes[i])) return i;
        return std::nullopt;
    }

private:
    bool m_ignoreCase;
    std::string m_text;
};

}  // namespace

std::optional<std::vector<TreeNode>> loadBnoTree(const std::filesystem::path& dataDirectory)
{
    return loadTreeFile(dataFilePath(dataDirectory, "bno.tre"));
}

bool nodeHoldsCode(std::string_view nodeText, std::string_view code)
{
    if (code.empty() || !nodeText.starts_with(code)) return false;
    return nodeText.size() == code.size() || nodeText[code.size()] == ' ';
}

std::optional<std::size_t> findBnoCode(const std::vector<TreeNode>& nodes, std::string_view code)
{
    for (std::size_t i = 0; i < nodes.size(); ++i)
        if (nodeHoldsCode(nodes[i].text, code)) return i;
    return std::nullopt;
}

BnoSearchPosition& sharedBnoSearchPosition()
{
    static BnoSearchPosition position;
    return position;
}

bool bnoNodeMatches(std::string_view nodeText, std::string_view text, bool ignoreCase)
{
    return Walk(text, ignoreCase).hit(TreeNode{0, std::string(nodeText)});
}

std::optional<std::size_t> bnoSearchFirst(const std::vector<TreeNode>& nodes, std::string_view text,
                                          bool ignoreCase, BnoSearchPosition& position)
{
    position.counter = 0;
    return Walk(text, ignoreCase).firstFrom(nodes, 0, position);
}

std::optional<std::size_t> bnoSearchNext(const std::vector<TreeNode>& nodes, std::string_view text,
                                         bool ignoreCase, BnoSearchPosition& position)
{
    // Past the end the counter stays where it is: "next" after the last hit ends silently every time.
    if (position.counter >= nodes.size()) return std::nullopt;
    ++position.counter;
    return Walk(text, ignoreCase).firstFrom(nodes, position.counter, position);
}

std::vector<std::size_t> bnoSearchAll(const std::vector<TreeNode>& nodes, std::string_view text,
                                      bool ignoreCase)
{
    const Walk walk(text, ignoreCase);
    std::vector<std::size_t> hits;
    for (std::size_t i = 0; i < nodes.size(); ++i)
        if (walk.hit(nodes[i])) hits.push_back(i);
    return hits;
}

}  // namespace rovanel
