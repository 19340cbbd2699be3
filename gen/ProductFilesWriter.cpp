// The product names, their text blocks and the blocks' offsets.
#include "db/RecordLayout.h"
#include "gen/ProductModel.h"

namespace rovanel::generation
{

bool Generator::writeProductFiles(std::string* error)
{
    std::string nevrend, nevpos, gyful;
    for (const std::size_t generation : m_order) {
        const Product& product = m_products[generation];
        nevrend += encodeFixedLine(product.name, kNameLineLength);
        nevpos += encodePositionRecord(gyful.size());
        gyful += productBlock(product);
    }
    if (gyful.size() >= 100'000'000) {
        if (error) *error = "gy.ful would need offsets of more than 8 digits";
        return false;
    }
    m_files.emplace_back("nevrend.dat", std::move(nevrend));
    m_files.emplace_back("nevpos.dat", std::move(nevpos));
    m_files.emplace_back("gy.ful", std::move(gyful));
    return true;
}

}  // namespace rovanel::generation
