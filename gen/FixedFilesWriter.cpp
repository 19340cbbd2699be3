// The files every generated database holds the same: the message table, the closing date and the
// settings file of the data directory.
#include "db/MessageCatalog.h"
#include "db/RecordLayout.h"
#include "gen/ProductModel.h"

namespace rovanel::generation
{

void Generator::writeFixedFiles()
{
    std::string messages;
    for (const std::string& line : messageCatalogLines()) messages += line + "\r\n";
    m_files.emplace_back("MSG.DAT", std::move(messages));
    m_files.emplace_back("zaras.inf", "20261101\r\n2026.11.01\r\n");
    m_files.emplace_back("RV.INI",
                         "[Rovanel Beallitasok]\r\nTTNemKellLeirasba=NEM\r\nKgyTxtPath=kgy.txt\r\n"
                         "BetegAdatokIniPath=beteg.ini\r\nPathToUpdate=\r\n");
}

void Generator::writeCounts()
{
    planted.atcGroups = static_cast<int>(m_groupCodes.size());
    planted.contraindications = static_cast<int>(std::size(kContraindications));
    planted.sideEffects = static_cast<int>(std::size(kSideEffects));
    planted.ingredients = static_cast<int>(m_ingredients.size());
    planted.regulations = static_cast<int>(m_regulations.size());
    m_files.emplace_back("inf.dat", number(planted.products) + "," + number(planted.atcGroups) + "," +
                                        number(planted.sideEffects) + "," +
                                        number(planted.contraindications) + "," +
                                        number(planted.ingredients) + ",0,0," + number(kFormCount) + "," +
                                        number(kFormCount) + "," + number(planted.regulations) + "," +
                                        number(planted.nutrition) + "," + number(planted.others) + ",1\r\n");
}

}  // namespace rovanel::generation
