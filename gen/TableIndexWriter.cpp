// The contraindication and side-effect tables: names, trees and index pairs.
#include "db/RecordLayout.h"
#include "gen/ProductModel.h"

namespace rovanel::generation
{

void Generator::writeTableIndexFiles()
{
    std::vector<const std::vector<std::string>*> contraSections, effectSections;
    for (const std::size_t generation : m_order) {
        contraSections.push_back(&m_products[generation].contraindications);
        effectSections.push_back(&m_products[generation].sideEffects);
    }
    const auto contraLists = codeLists(kContraindications, contraSections);
    m_effectLists = codeLists(kSideEffects, effectSections);
    std::string contraNames, effectNames;
    for (const CodeEntry& entry : kContraindications)
        contraNames += encodeFixedLine(cp(entry.name), kNameFileLineLength);
    for (const CodeEntry& entry : kSideEffects)
        effectNames += encodeFixedLine(cp(entry.name), kNameFileLineLength);
    std::string contraDirectory, contraList, effectDirectory, effectList;
    indexPair(contraLists, false, false, contraDirectory, contraList);
    indexPair(m_effectLists, false, true, effectDirectory, effectList);
    m_files.emplace_back("ellindin.dat", std::move(contraDirectory));
    m_files.emplace_back("ellind.dat", std::move(contraList));
    m_files.emplace_back("mhindin.dat", std::move(effectDirectory));
    m_files.emplace_back("mhind.dat", std::move(effectList));
    m_files.emplace_back("ellnrend.dat", std::move(contraNames));
    m_files.emplace_back("mhnrend.dat", std::move(effectNames));
    m_files.emplace_back("ellnren2.dat", codeTree(kContraindications));
    m_files.emplace_back("mhnren2.dat", codeTree(kSideEffects));
}

}  // namespace rovanel::generation
