// The pharmaceutical forms: x.dat and the number of products of each (xd.dat).
#include "db/RecordLayout.h"
#include "gen/ProductModel.h"

namespace rovanel::generation
{

void Generator::writeFormFiles()
{
    std::vector<int> formProducts(static_cast<std::size_t>(kFormCount), 0);
    for (const Product& product : m_products) ++formProducts[static_cast<std::size_t>(product.form)];
    std::string shortTexts, pairs;
    for (int k = 0; k < kFormCount; ++k) {
        shortTexts += m_formAbbreviations[static_cast<std::size_t>(k)] + "\r\n";
        pairs += number(k) + "," + number(formProducts[static_cast<std::size_t>(k)]) + "\r\n";
    }
    m_files.emplace_back("xd.dat", std::move(pairs));
    m_files.emplace_back("x.dat", std::move(shortTexts));
}

}  // namespace rovanel::generation
