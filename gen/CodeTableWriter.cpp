// KOD.DAT: the product codes in record order, the ATC groups in use, the contraindication and
// side-effect codes.
#include "db/RecordLayout.h"
#include "gen/ProductModel.h"

namespace rovanel::generation
{

void Generator::writeCodeTableFiles()
{
    std::string kod;
    for (const std::size_t generation : m_order)
        kod += encodeCodeField(m_products[generation].code, kProductCodeWidth);
    for (const std::string& code : m_groupCodes) kod += encodeCodeField(code, kAtcGroupCodeWidth);
    for (const CodeEntry& entry : kContraindications)
        kod += encodeCodeField(entry.code, kContraindicationCodeWidth);
    for (const CodeEntry& entry : kSideEffects) kod += encodeCodeField(entry.code, kSideEffectCodeWidth);
    m_files.emplace_back("KOD.DAT", std::move(kod));
}

}  // namespace rovanel::generation
