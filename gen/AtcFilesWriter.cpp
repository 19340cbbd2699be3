// The ATC groups in use: their tree, names, level lines and index pair.
#include "db/RecordLayout.h"
#include "gen/ProductModel.h"

namespace rovanel::generation
{

void Generator::writeAtcFiles()
{
    // Every level prefix of every own code, in pre-order (sorted codes).
    for (const Product& product : m_products)
        for (std::size_t i = 0; i < product.substances.size(); ++i) {
            const std::string code = ownCode(product, i);
            for (std::size_t length : {1, 3, 4, 6, 8}) m_groupIndex.emplace(code.substr(0, length), 0);
        }
    for (auto& [code, index] : m_groupIndex) {
        index = static_cast<int>(m_groupCodes.size());
        m_groupCodes.push_back(code);
    }
    std::string atcTree, atcNames, atcLevels;
    for (const std::string& code : m_groupCodes) {
        const Group& group = m_groups.at(code);
        const int depth = code.size() == 1   ? 0
                          : code.size() == 3 ? 1
                          : code.size() == 4 ? 2
                          : code.size() == 6 ? 3
                                             : 4;
        atcTree += std::string(static_cast<std::size_t>(depth), '\t') + group.name + " (" +
                   group.international + ")\r\n";
        atcNames += encodeFixedLine(group.name, kNameFileLineLength);
        atcLevels += encodeFixedLine(group.international + "  " + group.name, kNameFileLineLength);
    }
    m_atcLists.assign(m_groupCodes.size(), {});
    for (std::size_t r = 0; r < m_order.size(); ++r) {
        const std::string& code = m_products[m_order[r]].code;
        for (std::size_t length : {1, 3, 4, 6, 8})
            m_atcLists[static_cast<std::size_t>(m_groupIndex.at(code.substr(0, length)))].push_back(
                static_cast<std::int32_t>(r));
    }
    std::string directory, list;
    indexPair(m_atcLists, true, false, directory, list);
    m_files.emplace_back("atcindin.dat", std::move(directory));
    m_files.emplace_back("atcind.dat", std::move(list));
    m_files.emplace_back("atcnrend.dat", std::move(atcNames));
    m_files.emplace_back("atcnren5.dat", std::move(atcLevels));
    m_files.emplace_back("atcnren2.dat", std::move(atcTree));
}

}  // namespace rovanel::generation
