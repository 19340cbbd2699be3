// The cases a generated database plants for the tests and the windows (gen/DatabaseGenerator.h).
#include <algorithm>

#include "gen/ProductModel.h"
#include "gen/Vocabulary.h"

namespace rovanel::generation
{

void Generator::plantCases()
{
    const int medicines = planted.medicines;
    std::set<int> used;
    const auto candidate = [&](char otherThan) {
        for (;;) {
            const int i = m_random.below(medicines);
            const Product& product = m_products[static_cast<std::size_t>(i)];
            const Substance& substance = m_substances[static_cast<std::size_t>(product.substances.front())];
            if (product.combination || product.deleted || used.count(i) ||
                m_reserved.count(product.substances.front()) || substance.anatomical == otherThan)
                continue;
            used.insert(i);
            return i;
        }
    };
    const auto code8 = [&](int i) { return ownCode(m_products[static_cast<std::size_t>(i)], 0); };
    const auto anatomical = [&](int i) { return code8(i)[0]; };

    // The avoid pair: each avoid section holds a prefix of the other's own code (6 and 8 characters).
    const int a = candidate(0), b = candidate(anatomical(a));
    m_products[static_cast<std::size_t>(a)].careful.clear();
    m_products[static_cast<std::size_t>(a)].avoid = {code8(b).substr(0, 6)};
    m_products[static_cast<std::size_t>(b)].careful.clear();
    m_products[static_cast<std::size_t>(b)].avoid = {code8(a)};
    // The careful pair: one careful line (4 characters) of c matches d; nothing else between them.
    const int c = candidate(0), d = candidate(anatomical(c));
    m_products[static_cast<std::size_t>(c)].careful = {code8(d).substr(0, 4)};
    m_products[static_cast<std::size_t>(c)].avoid.clear();
    m_products[static_cast<std::size_t>(d)].careful.clear();
    m_products[static_cast<std::size_t>(d)].avoid.clear();
    // The contraindicated medicine.
    const int e = candidate(0);
    Product& contraindicated = m_products[static_cast<std::size_t>(e)];
    if (std::find(contraindicated.contraindications.begin(), contraindicated.contraindications.end(),
                  "E0101") == contraindicated.contraindications.end()) {
        contraindicated.contraindications.push_back("E0101");
        std::sort(contraindicated.contraindications.begin(), contraindicated.contraindications.end());
    }
    if (contraindicated.contraText.empty())
        contraindicated.contraText.push_back(cp(kContraindicationTexts[0]));
    // The over-long careful line: another medicine's product code with one digit too many.
    const int f = candidate(0);
    const std::string longLine = m_products[static_cast<std::size_t>(candidate(0))].code + "1";
    m_products[static_cast<std::size_t>(f)].careful.push_back(longLine);

    m_plantedGeneration = {a, b, c, d, e, f};
    planted.avoidFirstCode = m_products[static_cast<std::size_t>(a)].avoid.front();
    planted.avoidSecondCode = m_products[static_cast<std::size_t>(b)].avoid.front();
    planted.carefulCode = m_products[static_cast<std::size_t>(c)].careful.front();
    planted.contraindicationCode = "E0101";
    planted.longCodeLine = longLine;
}

void Generator::plantListCases()
{
    for (std::size_t k = 0; k < m_groupCodes.size(); ++k) {
        const int size = static_cast<int>(m_atcLists[k].size());
        if (m_groupCodes[k].size() == 1 && size > 600 && size > planted.largeLevel1Products) {
            planted.largeLevel1Node = static_cast<std::int32_t>(k), planted.largeLevel1Code = m_groupCodes[k];
            planted.largeLevel1Products = size;
        }
        if (m_groupCodes[k].size() == 3 && size > 600 && size > planted.largeLevel2Products) {
            planted.largeLevel2Node = static_cast<std::int32_t>(k), planted.largeLevel2Code = m_groupCodes[k];
            planted.largeLevel2Products = size;
        }
    }
    for (std::size_t k = 0; k < std::size(kContraindications); ++k)
        if (std::string_view(kContraindications[k].code) == "E0101")
            planted.contraindicationIndex = static_cast<std::int32_t>(k);
    planted.contraindicatedGroupNode = m_groupIndex.at(
        m_products[m_order[static_cast<std::size_t>(planted.contraindicated)]].code.substr(0, 6));
    for (std::size_t k = 0; k < std::size(kSideEffects); ++k)
        if (std::string_view(kSideEffects[k].code) == "M0101" && m_effectLists[k].size() > 600) {
            planted.commonSideEffect = static_cast<std::int32_t>(k);
            planted.commonSideEffectCode = "M0101";
            planted.commonSideEffectProducts = static_cast<int>(m_effectLists[k].size());
        }
    for (int which = 0; which < 2; ++which) {
        const auto found = m_ingredientIndex.find(m_reservedNames[static_cast<std::size_t>(which)]);
        if (m_reservedNames[static_cast<std::size_t>(which)].empty() || found == m_ingredientIndex.end() ||
            m_ingredientLists[static_cast<std::size_t>(found->second)].size() !=
                static_cast<std::size_t>(600 + which))
            continue;
        (which == 0 ? planted.ingredient600 : planted.ingredient601) = found->second;
        (which == 0 ? planted.ingredient600Name : planted.ingredient601Name) = found->first;
    }
}

}  // namespace rovanel::generation
