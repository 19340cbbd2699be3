// The active ingredients: the names of the medicine substances among the own codes, in Hungarian
// order, and their index pair.
#include <algorithm>

#include "db/HungarianCollation.h"
#include "db/RecordLayout.h"
#include "gen/ProductModel.h"

namespace rovanel::generation
{

void Generator::writeIngredientFiles()
{
    std::map<std::string, std::string> ingredientKeys;  // name -> sort key
    for (const Product& product : m_products)
        for (int s : product.substances) {
            const Substance& substance = m_substances[static_cast<std::size_t>(s)];
            if (substance.anatomical != 'T' && substance.anatomical != 'X')
                ingredientKeys.emplace(substance.name, hungarianSortKey(substance.name));
        }
    for (const auto& [name, key] : ingredientKeys) m_ingredients.push_back(name);
    std::sort(m_ingredients.begin(), m_ingredients.end(), [&](const std::string& x, const std::string& y) {
        return ingredientKeys[x] < ingredientKeys[y];
    });
    std::string harend;
    for (std::size_t k = 0; k < m_ingredients.size(); ++k) {
        m_ingredientIndex[m_ingredients[k]] = static_cast<int>(k);
        harend += m_ingredients[k] + "\r\n";
    }
    m_ingredientLists.assign(m_ingredients.size(), {});
    for (std::size_t r = 0; r < m_order.size(); ++r) {
        std::set<int> mine;
        for (int s : m_products[m_order[r]].substances) {
            const auto found = m_ingredientIndex.find(m_substances[static_cast<std::size_t>(s)].name);
            if (found != m_ingredientIndex.end()) mine.insert(found->second);
        }
        for (int k : mine)
            m_ingredientLists[static_cast<std::size_t>(k)].push_back(static_cast<std::int32_t>(r));
    }
    std::string directory, list;
    indexPair(m_ingredientLists, false, false, directory, list);
    m_files.emplace_back("haindinf.dat", std::move(directory));
    m_files.emplace_back("haind.dat", std::move(list));
    m_files.emplace_back("harend2.dat", std::move(harend));
}

}  // namespace rovanel::generation
