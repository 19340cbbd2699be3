// A database of five products (three medicines, one nutrition product, one other) with blocks of price
// lines only, small enough to corrupt byte by byte in tests.
#pragma once

#include <string>

#include "tests/support/EngineDatabase.h"

namespace rovanel::testing
{

inline EngineDatabase tinyDatabase()
{
    EngineDatabase database;
    for (const auto& [code, name] : {std::pair{"A02BC-0101", "ALFA 20 MG KAPSZULA 28X"},
                                     {"C08CA-0101", "BÉTA 5 MG TABLETTA 30X"},
                                     {"C08CA-0102", "GAMMA 10 MG TABLETTA 30X"},
                                     {"T01AA-0101", "TÁPLÁLÓ ITAL 200 ML"},
                                     {"X01AA-0101", "EGYÉB TERMÉK 1X"}}) {
        database.products.emplace_back(code, name).block =
            std::string(code) + "\r\n" + std::string(code, 8) + "\r\n#ar\r\n1000\r\n800\r\n#vege\r\n";
    }
    database.nutrition = database.others = 1;
    database.atcGroups = {{"C", "Szív"}, {"C08", "Kalciumcsatorna-blokkolók"}, {"C08C", "Szelektív"}};
    database.contraindications = {{"E01", "   Terhesség"}, {"E0101", "Szoptatás"}};
    database.sideEffects = {{"Fejfájás", {0, 2}}, {"Szédülés", {2}}};
    database.sideEffectCodes = {"M01", "M0101"};
    database.forms = {{"tabl.", 3}, {"kaps.", 2}};
    // Message 1 is the title's, 5 and 6 are NULL with blanks after and before.
    std::string& msg = database.files["MSG.DAT"];
    for (int i = 0; i < 150; ++i)
        msg += utf8ToCp1250(i == 1   ? "Készítmény:\r\n"
                            : i == 5 ? "NULL   \r\n"
                            : i == 6 ? " NULL\r\n"
                                     : "Üzenet " + std::to_string(i) + " ~ megjegyzés\r\n");
    database.files["zaras.inf"] = "20261101\r\n2026.11.01\r\n";
    return database;
}

inline void writeTinyDatabase(const ScratchDirectory& directory) { tinyDatabase().write(directory); }

}  // namespace rovanel::testing
